#pragma once

namespace mrl::detail {

/// What a document does with its temporary file and the directory of it.
enum class FileStep { makeDirectory, create, open, write, read, seek, close };

/// Asked before each step; false makes the step fail as the system would.
using FileGate = bool (*)(FileStep step);

/// Puts `gate` in the place of the one there was, which is given back; null lets everything pass. For tests,
/// which make every step fail once. Thread-safe.
FileGate replaceFileGate(FileGate gate) noexcept;

/// Whether a step may be taken.
bool passes(FileStep step);

} // namespace mrl::detail
