#pragma once

#include "HBLCFGAPI/HBLConfigurationDocument.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mrl::tool {

/// What there is to say about a file of properties (docs/properties.md). The library says nothing: whatever
/// it cannot use is as if it were not there.
struct PropertyFile {
    std::size_t count = 0; ///< properties that are read
    std::vector<HBLConfigurationFinding> findings;
};

PropertyFile examinedProperties(const std::string& path);

} // namespace mrl::tool
