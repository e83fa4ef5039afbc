#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

namespace mrl::tool {

class Figures;

/// What kind of storage a value of a declared type has.
enum class ValueKind { text, nullable, object, array };

ValueKind valueKind(MRLSchemaTypeI::ObjectType declared);

/// Types by form and family, and the members of the classes.
void countTypes(Figures& figures);

/// Messages and their parameters.
void countMessages(Figures& figures);

/// Port types and their entries.
void countServices(Figures& figures);

/// The symbol table.
void countSymbols(Figures& figures);

} // namespace mrl::tool
