#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include <string_view>

namespace mrl::tool {

class Figures;

/// What kind of storage a value of a declared type has: "string", "nullable", "object" or "array". Bytes
/// count as an object.
std::string_view valueKind(MRLSchemaTypeI::ObjectType declared);

/// Whether a type of the factory cannot be made.
bool isAbstract(MRLSchemaTypeI::ObjectType type);

/// Types by form and family, and the members of the classes.
void countTypes(Figures& figures);

/// Values of the enumerations, those that travel and those that do not.
void countValues(Figures& figures);

/// Messages and their parameters.
void countMessages(Figures& figures);

/// Port types and their entries.
void countServices(Figures& figures);

/// The symbol table.
void countSymbols(Figures& figures);

} // namespace mrl::tool
