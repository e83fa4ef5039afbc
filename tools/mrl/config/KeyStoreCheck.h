#pragma once

#include "HBLCFGAPI/HBLConfigurationDocument.h"

#include <vector>

namespace mrl::tool {

/// What is wrong with the key store that holds with this configuration. Nothing is wrong with one that is
/// not there yet: its first use makes it.
/// @param document null when there is no file.
std::vector<HBLConfigurationFinding> examinedKeyStore(const HBLConfigurationDocument* document);

} // namespace mrl::tool
