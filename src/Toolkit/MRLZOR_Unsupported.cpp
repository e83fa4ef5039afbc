#include "Toolkit/MRLZOR_Unsupported.h"

#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLSchemaTypesFactory.h"

#include "HBLCore/HBLFailure.h"

#include <cstring>

namespace {

constexpr char credentialName[] = "ZORCredential";

bool isCredential(const char* name) {
    return std::strcmp(name, credentialName) == 0;
}

} // namespace

MRLZOR_Unsupported::MRLZOR_Unsupported(const MRLZOR& source, MRLObjectRegistryI& registry)
    : MRLZOR(source, registry) {}

MRLZOR_Unsupported::MRLZOR_Unsupported(const MRLZOR_Unsupported& source, MRLObjectRegistryI& registry)
    : MRLZOR(source, registry)
    , m_credential(mrl::detail::copyText(source.m_credential, registry)) {}

MRLZOR_Unsupported::~MRLZOR_Unsupported() = default;

MRLSchemaTypeI::ObjectType MRLZOR_Unsupported::getObjectType() const {
    return s_objectType;
}

const std::string& MRLZOR_Unsupported::getGeneratedObjectName() const {
    static const std::string name(s_className);
    return name;
}

void* MRLZOR_Unsupported::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (isCredential(name))
        return mrl::detail::childObject(m_credential, create);
    return MRLZOR::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLZOR_Unsupported::getChildType(const char* name) const {
    HBL_ASSERT(name);
    return isCredential(name) ? eString : MRLZOR::getChildType(name);
}

std::size_t MRLZOR_Unsupported::setChildObject(const char* name, void* obj, const ObjectType& type,
                                               std::size_t* index) {
    HBL_ASSERT(name);
    if (!isCredential(name))
        return MRLZOR::setChildObject(name, obj, type, index);
    HBL_ASSERT(obj != NULL);
    if (MRLSchemaTypesFactory::isString(type) == 0)
        MRLSchemaTypesFactory::typeError(s_className, credentialName, eString, type);
    m_credential = mrl::detail::textOf(obj, type);
    return 0;
}

void MRLZOR_Unsupported::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    MRLZOR::getChildObjectNames(names, false);
    names.push_back(credentialName);
}

int MRLZOR_Unsupported::isa(ObjectType type) const {
    return type == s_objectType ? 1 : MRLZOR::isa(type);
}

std::size_t MRLZOR_Unsupported::getChildObjectCount() const {
    std::vector<const char*> inherited;
    MRLZOR::getChildObjectNames(inherited, false);
    return inherited.size() + 1;
}
