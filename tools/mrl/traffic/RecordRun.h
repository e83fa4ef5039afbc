#pragma once

#include <string>
#include <vector>

namespace mrl::tool {

/// `mrl record`: a program is run whose sessions record.
struct RecordRun {
    std::string directory = "recording";
    std::vector<std::string> command;

    /// Tells on standard error what was recorded, and what of it is not whole.
    /// @return the program's exit code; 1 when it is 0 and nothing was recorded.
    /// @throws TrafficError when the directory cannot be used.
    int run() const;
};

} // namespace mrl::tool
