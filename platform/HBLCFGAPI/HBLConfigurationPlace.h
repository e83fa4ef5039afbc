#pragma once

#include "HBLCore/MRLExport.h"

#include <string>

/// Where something of a configuration stands.
struct MRL_EXPORT HBLConfigurationPlace {
    std::string source; ///< the file, or what else it came from
    int line = 0;       ///< from 1 on; 0 when there are no lines
    int column = 0;     ///< behind the start tag or the character in question; 0 for none

    /// "file:12:34", or the source alone.
    std::string toString() const;
};
