#include "Toolkit/MRLZOR_Unsupported.h"

#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLSchemaTypesFactory.h"

#include "HBLCore/HBLFailure.h"

#include <cstring>

namespace {

constexpr const char* CREDENTIAL = "ZORCredential";
constexpr std::size_t CREDENTIALS = 1;

bool isCredential(const char* name) {
    return std::strcmp(name, CREDENTIAL) == 0;
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
    static const std::string s_name = s_className;
    return s_name;
}

void* MRLZOR_Unsupported::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    return isCredential(name) ? const_cast<char*>(m_credential) : MRLZOR::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLZOR_Unsupported::getChildType(const char* name) const {
    HBL_ASSERT(name);
    return isCredential(name) ? eString : MRLZOR::getChildType(name);
}

std::size_t MRLZOR_Unsupported::setChildObject(const char* name, void* obj, const ObjectType& type,
                                               std::size_t* index) {
    HBL_ASSERT(name);
    if (!isCredential(name)) {
        return MRLZOR::setChildObject(name, obj, type, index);
    }
    HBL_ASSERT(obj != NULL);
    if (MRLSchemaTypesFactory::isString(type) == 0) {
        MRLSchemaTypesFactory::typeError("ZOR", name, eString, type);
    }
    m_credential = mrl::detail::textOf(obj, type);
    return 0;
}

void MRLZOR_Unsupported::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    MRLZOR::getChildObjectNames(names, reserve);
    names.push_back(CREDENTIAL);
}

std::size_t MRLZOR_Unsupported::getChildObjectCount() const {
    std::vector<const char*> inherited;            // the base keeps its count to itself
    MRLZOR::getChildObjectNames(inherited, false); // not true: that would ask for the count
    return inherited.size() + CREDENTIALS;
}

int MRLZOR_Unsupported::isa(ObjectType type) const {
    return type == s_objectType ? 1 : MRLZOR::isa(type);
}

int MRLZOR_Unsupported::operator==(const MRLSchemaTypeI& other) const {
    if (this == &other) {
        return 1;
    }
    if (other.isa(s_objectType) == 0) {
        return 0;
    }
    const auto& same = static_cast<const MRLZOR_Unsupported&>(other);
    return mrl::detail::equalText(m_credential, same.m_credential) ? MRLZOR::operator==(other) : 0;
}

int MRLZOR_Unsupported::operator!=(const MRLSchemaTypeI& other) const {
    return MRLZOR_Unsupported::operator==(other) != 0 ? 0 : 1;
}
