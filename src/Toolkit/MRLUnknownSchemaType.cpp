#include "Toolkit/MRLUnknownSchemaType.h"

MRLUnknownSchemaType::MRLUnknownSchemaType() = default;

MRLUnknownSchemaType::MRLUnknownSchemaType(const std::string& name)
    : m_name(name) {}

MRLUnknownSchemaType::~MRLUnknownSchemaType() = default;

MRLSchemaTypeI::ObjectType MRLUnknownSchemaType::getObjectType() const {
    return e_Unknown;
}

const std::string& MRLUnknownSchemaType::getGeneratedObjectName() const {
    return m_name;
}

void* MRLUnknownSchemaType::getChildObject(const char* /*name*/, int /*create*/) {
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLUnknownSchemaType::getChildType(const char* /*name*/) const {
    return e_Unknown;
}

std::size_t MRLUnknownSchemaType::setChildObject(const char* /*name*/, void* /*obj*/,
                                                 const ObjectType& /*type*/, std::size_t* /*index*/) {
    return 0;
}

void MRLUnknownSchemaType::getChildObjectNames(std::vector<const char*>& /*names*/, bool /*reserve*/) const {}

int MRLUnknownSchemaType::isa(ObjectType type) const {
    return type == e_Unknown ? 1 : 0;
}

std::size_t MRLUnknownSchemaType::getChildObjectCount() const {
    return 0;
}

int MRLUnknownSchemaType::operator==(const MRLSchemaTypeI& other) const {
    return this == &other ? 1 : 0;
}

int MRLUnknownSchemaType::operator!=(const MRLSchemaTypeI& other) const {
    return this == &other ? 0 : 1;
}
