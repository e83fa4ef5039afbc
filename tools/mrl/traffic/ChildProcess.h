#pragma once

#include <string>
#include <utility>
#include <vector>

namespace mrl::tool {

/// What runChild gives for a program that did not start.
enum ChildCode : int { e_NotRun = 126, e_NotFound = 127 };

/// Runs a program with the streams of this one, and some variables of its environment set or (with an empty
/// value) unset. Interrupts from the terminal are the program's business until it ends.
/// @return its exit code; 128 and the signal's number when a signal ended it; a ChildCode after a
///         line on standard error.
int runChild(const std::vector<std::string>& command,
             const std::vector<std::pair<std::string, std::string>>& variables);

} // namespace mrl::tool
