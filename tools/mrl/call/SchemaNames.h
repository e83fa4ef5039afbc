#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "data/CatalogueData.h"

#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

/// The row of a generated type; null for any other.
const TypeRow* rowOf(MRLSchemaTypeI::ObjectType type);

/// "report" for the type of MRLReport, "string" for texts.
std::string schemaName(MRLSchemaTypeI::ObjectType type);

/// Whether objects of the type are nothing but a text: enumerations, search paths and their like.
bool isTextType(const TypeRow& type);

/// Whether objects of the type are a value and what the schema says about it; the value may then stand alone.
bool isProperty(const TypeRow& type);

/// Its own members and the inherited ones, those of the root first.
std::vector<const MemberRow*> allMembers(const TypeRow& type);

/// A member of the type or inherited; null when there is none.
const MemberRow* findMember(const TypeRow& type, std::string_view member);

/// The type itself and all that derive from it, as far as objects of them can be made.
std::vector<const TypeRow*> concreteTypes(const TypeRow& type);

} // namespace mrl::tool
