#pragma once

#include "Toolkit/MRLPortTypeI.h"
#include "Toolkit/MRLSchemaTypeI.h"

#include <memory>
#include <string_view>

/// What the library offers by C++ name only, found by the names of the catalogue.
namespace mrl::tool {

/// The port type of a service, a singleton; null when there is none.
const MRLPortTypeI* portType(std::string_view service);

/// An abstract class cannot be made, but it can answer: an object of it and of nothing more. Null when
/// there is no abstract type of that name.
std::unique_ptr<MRLSchemaTypeI> makeStandIn(std::string_view abstractType);

/// Tells whether an enumeration has a value of that text.
using ValueTest = bool (*)(const char* value);

/// The test of an enumeration, whether it travels or not; null when there is none of that name.
ValueTest valueTest(std::string_view enumeration);

} // namespace mrl::tool
