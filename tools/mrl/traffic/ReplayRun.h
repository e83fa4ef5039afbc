#pragma once

#include <string>
#include <vector>

namespace mrl::tool {

/// `mrl replay`: a program is run whose sessions are answered from a recording.
struct ReplayRun {
    std::string directory;
    std::vector<std::string> command;
    std::string sent; ///< keeps what was sent; empty for nowhere
    std::vector<std::string> ignored;
    std::vector<std::string> rules;

    /// Tells on standard error what cannot be played back, and what was sent otherwise than recorded.
    /// @return the program's exit code when it is not 0, else 1 when something differs, else 0.
    /// @throws TrafficError when the recording or a directory cannot be used.
    int run() const;
};

} // namespace mrl::tool
