#include "call/SchemaNames.h"

#include "Toolkit/MRLSchemaTypesFactory.h"
#include "lookup/Catalogue.h"

namespace mrl::tool {

std::string schemaName(MRLSchemaTypeI::ObjectType type) {
    const std::string_view name = MRLSchemaTypesFactory::getInstance().objectTypeToXSIType(type);
    return std::string(name.substr(name.find(':') + 1));
}

const TypeRow* rowOf(MRLSchemaTypeI::ObjectType type) {
    if (type == MRLSchemaTypeI::e_Unknown || MRLSchemaTypesFactory::isGeneratedType(type) == 0)
        return nullptr;
    return findType(schemaName(type));
}

bool isTextType(const TypeRow& type) {
    return type.kind == TypeKind::enumeration || (type.members.size() == 1 && *type.members[0].name == '\0');
}

std::vector<const MemberRow*> allMembers(const TypeRow& type) {
    std::vector<const MemberRow*> members;
    for (const TypeRow* level : lineageOf(type))
        for (const MemberRow& member : level->members)
            members.push_back(&member);
    return members;
}

const MemberRow* findMember(const TypeRow& type, std::string_view member) {
    for (const MemberRow* row : allMembers(type))
        if (member == row->name)
            return row;
    return nullptr;
}

bool isProperty(const TypeRow& type) {
    return type.kind == TypeKind::property && findMember(type, "value") != nullptr;
}

std::vector<const TypeRow*> concreteTypes(const TypeRow& type) {
    std::vector<const TypeRow*> concrete;
    if (!type.isAbstract)
        concrete.push_back(&type);
    for (const TypeRow* child : childrenOf(type.name))
        for (const TypeRow* descendant : concreteTypes(*child))
            concrete.push_back(descendant);
    return concrete;
}

} // namespace mrl::tool
