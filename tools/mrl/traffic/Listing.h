#pragma once

#include "traffic/Recording.h"

#include <iosfwd>

namespace mrl::tool {

/// What people see of a recording.

/// One line a call: its id, operation, outcome, sizes and attachments.
void printList(const Recording& recording, std::ostream& out);

enum class Shown { both, request, reply };

/// The envelopes of a call, indented, and its attachments by name, size and kind.
/// @throws TrafficError when a file cannot be read.
void printCall(const RecordedCall& call, Shown shown, std::ostream& out);

} // namespace mrl::tool
