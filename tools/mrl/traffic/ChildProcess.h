#pragma once

#include <string>
#include <utility>
#include <vector>

namespace mrl::tool {

/// Runs a program with the streams of this one, and some variables of its environment set or (with an empty
/// value) unset. Interrupts from the terminal are the program's business until it ends.
/// @return its exit code; 128 and the signal's number when a signal ended it; 127 when there is no such
///         program, 126 when it cannot be run, after a line on standard error.
int runChild(const std::vector<std::string>& command,
             const std::vector<std::pair<std::string, std::string>>& variables);

} // namespace mrl::tool
