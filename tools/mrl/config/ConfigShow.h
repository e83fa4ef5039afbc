#pragma once

#include "HBLCFGAPI/HBLConfigurationDocument.h"

#include <ostream>

namespace mrl::tool {

/// Prints what holds with this configuration, one property a line with the place that it comes from: first
/// those that the toolkit knows, then the host's own. Secrets are masked.
/// @param document null when there is no file.
void printConfiguration(const HBLConfigurationDocument* document, std::ostream& out);

} // namespace mrl::tool
