#pragma once

#include <string>

namespace mrl::tool {

/// The configuration that a command is about.
struct ConfigFile {
    std::string path;
    std::string origin;  ///< how it was found: "named by MRL_CONFIGURATION"
    bool isThere = true; ///< false only at the default place, where it may be missing
};

/// @param given on the command line; empty for the one that the toolkit would load.
ConfigFile configFile(const std::string& given);

} // namespace mrl::tool
