// Generated from the catalogue: what the runtime asks a class by name.
#include "Toolkit/MRLSchemaTypesProp1_gen_.h"

#include "Toolkit/MRLMemberValues.h"
#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLBaseProp.h"
#include "Toolkit/MRLBooleanProp.h"
#include "Toolkit/MRLDecimalProp.h"
#include "Toolkit/MRLPartArray.h"
#include "Toolkit/MRLPartArrayProp.h"
#include "Toolkit/MRLRefProp.h"
#include "Toolkit/MRLSchemaInfo.h"
#include "Toolkit/MRLShapeEnum.h"
#include "Toolkit/MRLShapeEnumArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLThing.h"
#include "Toolkit/MRLThingProp.h"

#include "HBLCore/HBLFailure.h"

namespace detail = mrl::detail;

namespace mrl::detail {

template <>
void** memberValues<MRLBaseProp>(MRLBaseProp&, void**);
template <>
void** memberValues<MRLBooleanProp>(MRLBooleanProp&, void**);
template <>
void** memberValues<MRLDecimalProp>(MRLDecimalProp&, void**);
template <>
void** memberValues<MRLPartArrayProp>(MRLPartArrayProp&, void**);
template <>
void** memberValues<MRLRefProp>(MRLRefProp&, void**);
template <>
void** memberValues<MRLStringProp>(MRLStringProp&, void**);
template <>
void** memberValues<MRLThingProp>(MRLThingProp&, void**);

} // namespace mrl::detail

// -- MRLBaseProp --------------------------------------------------------------------------------------------

const std::string& MRLBaseProp::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLBaseProp::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x1B5D30CC: return detail::childObject(m_data->schemaInfo, create); // schemaInfo
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLBaseProp::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x1B5D30CC: return eMRLSchemaInfo; // schemaInfo
    default: return e_Unknown;
    }
}

std::size_t MRLBaseProp::setChildObject(const char* name, void* obj, const ObjectType& type,
                                        std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLBaseProp::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x1B5D30CC: // schemaInfo
        detail::setObject(m_data->schemaInfo, obj, type, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLBaseProp::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0x1B5D30CC // schemaInfo
                               });
}

std::size_t MRLBaseProp::getChildObjectCount() const {
    return 1;
}

namespace mrl::detail {

template <>
void** memberValues<MRLBaseProp>(MRLBaseProp& object, void** values) {
    *values++ = memberValue(object.getSchemaInfo());
    return values;
}

} // namespace mrl::detail

// -- MRLRefProp ---------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLRefProp::getObjectType() const {
    return s_objectType;
}

const std::string& MRLRefProp::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLRefProp::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x87C331C7: return detail::childObject(m_data->properties, create); // properties
        case 0x248A0C64: return detail::childObject(m_data->refPropName, create); // refPropName
        default: break;
        }
    }
    return MRLBaseProp::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLRefProp::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x87C331C7: return eMRLShapeEnumArray; // properties
    case 0x248A0C64: return eMRLShapeEnum; // refPropName
    default: return MRLBaseProp::getChildType(name);
    }
}

std::size_t MRLRefProp::setChildObject(const char* name, void* obj, const ObjectType& type,
                                       std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLRefProp::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x87C331C7: detail::refuseArrayMember("properties", s_className);
    case 0x248A0C64: // refPropName
        detail::setObject(m_data->refPropName, obj, type, owner, key);
        return 0;
    default: return MRLBaseProp::setMember(key, obj, type);
    }
}

void MRLRefProp::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    MRLBaseProp::getChildObjectNames(names, false);
    detail::appendNames(names, {
                                   0x87C331C7, // properties
                                   0x248A0C64 // refPropName
                               });
}

std::size_t MRLRefProp::getChildObjectCount() const {
    return 3;
}

namespace mrl::detail {

template <>
void** memberValues<MRLRefProp>(MRLRefProp& object, void** values) {
    values = memberValues<MRLBaseProp>(object, values);
    *values++ = memberValue(object.getProperties());
    *values++ = memberValue(object.getRefPropName());
    return values;
}

} // namespace mrl::detail

// -- MRLBooleanProp -----------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLBooleanProp::getObjectType() const {
    return s_objectType;
}

const std::string& MRLBooleanProp::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLBooleanProp::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x1D775834: return detail::childObject(m_data->value, create); // value
        default: break;
        }
    }
    return MRLBaseProp::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLBooleanProp::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x1D775834: return eBoolean; // value
    default: return MRLBaseProp::getChildType(name);
    }
}

std::size_t MRLBooleanProp::setChildObject(const char* name, void* obj, const ObjectType& type,
                                           std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLBooleanProp::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x1D775834: // value
        detail::setNullable(m_data->value, obj, type, eBoolean, owner, key);
        return 0;
    default: return MRLBaseProp::setMember(key, obj, type);
    }
}

void MRLBooleanProp::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    MRLBaseProp::getChildObjectNames(names, false);
    detail::appendNames(names, {
                                   0x1D775834 // value
                               });
}

std::size_t MRLBooleanProp::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLBooleanProp>(MRLBooleanProp& object, void** values) {
    values = memberValues<MRLBaseProp>(object, values);
    *values++ = memberValue(object.getValue());
    return values;
}

} // namespace mrl::detail

// -- MRLDecimalProp -----------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLDecimalProp::getObjectType() const {
    return s_objectType;
}

const std::string& MRLDecimalProp::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLDecimalProp::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x1D775834: return detail::childObject(m_data->value, create); // value
        default: break;
        }
    }
    return MRLBaseProp::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLDecimalProp::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x1D775834: return eDecimal; // value
    default: return MRLBaseProp::getChildType(name);
    }
}

std::size_t MRLDecimalProp::setChildObject(const char* name, void* obj, const ObjectType& type,
                                           std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLDecimalProp::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x1D775834: // value
        detail::setNullable(m_data->value, obj, type, eDecimal, owner, key);
        return 0;
    default: return MRLBaseProp::setMember(key, obj, type);
    }
}

void MRLDecimalProp::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    MRLBaseProp::getChildObjectNames(names, false);
    detail::appendNames(names, {
                                   0x1D775834 // value
                               });
}

std::size_t MRLDecimalProp::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLDecimalProp>(MRLDecimalProp& object, void** values) {
    values = memberValues<MRLBaseProp>(object, values);
    *values++ = object.getChildObject("value", 0);
    return values;
}

} // namespace mrl::detail

// -- MRLPartArrayProp ---------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLPartArrayProp::getObjectType() const {
    return s_objectType;
}

const std::string& MRLPartArrayProp::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLPartArrayProp::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x1D775834: return detail::childObject(m_data->value, create); // value
        default: break;
        }
    }
    return MRLBaseProp::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLPartArrayProp::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x1D775834: return eMRLPartArray; // value
    default: return MRLBaseProp::getChildType(name);
    }
}

std::size_t MRLPartArrayProp::setChildObject(const char* name, void* obj, const ObjectType& type,
                                             std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLPartArrayProp::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    switch (key) {
    case 0x1D775834: detail::refuseArrayMember("value", s_className);
    default: return MRLBaseProp::setMember(key, obj, type);
    }
}

void MRLPartArrayProp::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    MRLBaseProp::getChildObjectNames(names, false);
    detail::appendNames(names, {
                                   0x1D775834 // value
                               });
}

std::size_t MRLPartArrayProp::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLPartArrayProp>(MRLPartArrayProp& object, void** values) {
    values = memberValues<MRLBaseProp>(object, values);
    *values++ = memberValue(object.getValue());
    return values;
}

} // namespace mrl::detail

// -- MRLStringProp ------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLStringProp::getObjectType() const {
    return s_objectType;
}

const std::string& MRLStringProp::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLStringProp::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x1D775834: return detail::childObject(m_data->value, create); // value
        default: break;
        }
    }
    return MRLBaseProp::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLStringProp::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x1D775834: return eString; // value
    default: return MRLBaseProp::getChildType(name);
    }
}

std::size_t MRLStringProp::setChildObject(const char* name, void* obj, const ObjectType& type,
                                          std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLStringProp::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x1D775834: // value
        detail::setText(m_data->value, obj, type, owner, key);
        return 0;
    default: return MRLBaseProp::setMember(key, obj, type);
    }
}

void MRLStringProp::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    MRLBaseProp::getChildObjectNames(names, false);
    detail::appendNames(names, {
                                   0x1D775834 // value
                               });
}

std::size_t MRLStringProp::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLStringProp>(MRLStringProp& object, void** values) {
    values = memberValues<MRLBaseProp>(object, values);
    *values++ = memberValue(object.getValue());
    return values;
}

} // namespace mrl::detail

// -- MRLThingProp -------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLThingProp::getObjectType() const {
    return s_objectType;
}

const std::string& MRLThingProp::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLThingProp::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x1D775834: return detail::childObject(m_data->value, create); // value
        default: break;
        }
    }
    return MRLBaseProp::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLThingProp::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x1D775834: return eMRLThing; // value
    default: return MRLBaseProp::getChildType(name);
    }
}

std::size_t MRLThingProp::setChildObject(const char* name, void* obj, const ObjectType& type,
                                         std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLThingProp::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x1D775834: // value
        detail::setObject(m_data->value, obj, type, owner, key);
        return 0;
    default: return MRLBaseProp::setMember(key, obj, type);
    }
}

void MRLThingProp::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    MRLBaseProp::getChildObjectNames(names, false);
    detail::appendNames(names, {
                                   0x1D775834 // value
                               });
}

std::size_t MRLThingProp::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLThingProp>(MRLThingProp& object, void** values) {
    values = memberValues<MRLBaseProp>(object, values);
    *values++ = memberValue(object.getValue());
    return values;
}

} // namespace mrl::detail
