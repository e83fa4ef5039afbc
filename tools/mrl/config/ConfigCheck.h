#pragma once

#include "HBLCFGAPI/HBLConfigurationDocument.h"

#include <ostream>
#include <vector>

namespace mrl::tool {

/// All there is to say about a configuration: what the library finds, names that it does not know with the
/// nearest it does, values that nobody will understand. In the order of the file.
std::vector<HBLConfigurationFinding> examined(const HBLConfigurationDocument& document);

/// Prints findings, one a line: "file:12:34: error: expected ...". Passwords are masked.
void printFindings(const std::vector<HBLConfigurationFinding>& findings, std::ostream& out);

} // namespace mrl::tool
