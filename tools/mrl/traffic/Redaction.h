#pragma once

#include "traffic/Recording.h"
#include "traffic/Secrets.h"

#include <filesystem>
#include <string>
#include <vector>

namespace mrl::tool {

/// What became of a recording.
struct Redacted {
    std::size_t files = 0;
    std::size_t masks = 0; ///< how often something was masked
    std::vector<std::string>
        unsearched;                   ///< files that may hide what nobody can look for, each with the reason
    std::vector<std::string> leftOut; ///< files of strangers, which were not copied
};

/// Writes a copy of a recording with its secrets masked in envelopes and attachments, packed ones too. The
/// copy appears as a whole or not at all, readable by its owner alone; the recording stays as it is.
/// @param into a new directory.
/// @throws TrafficError for a directory that is there already, and files that cannot be read or written.
Redacted redact(const Recording& recording, Secrets& secrets, const std::filesystem::path& into);

} // namespace mrl::tool
