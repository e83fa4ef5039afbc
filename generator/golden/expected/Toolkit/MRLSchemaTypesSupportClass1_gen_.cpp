// Generated from the catalogue: what the runtime asks a class by name.
#include "Toolkit/MRLSchemaTypesClass1_gen_.h"

#include "Toolkit/MRLMemberValues.h"
#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLBareGadget.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBox.h"
#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailMessage.h"
#include "Toolkit/MRLFaultDetailMessageArray.h"
#include "Toolkit/MRLGadget.h"
#include "Toolkit/MRLIntArray.h"
#include "Toolkit/MRLLabel.h"
#include "Toolkit/MRLMarker.h"
#include "Toolkit/MRLMessage.h"
#include "Toolkit/MRLPart.h"
#include "Toolkit/MRLPartArray.h"
#include "Toolkit/MRLPromptInfo.h"
#include "Toolkit/MRLSchemaInfo.h"
#include "Toolkit/MRLShapeEnum.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLSwap.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLThing.h"
#include "Toolkit/MRLThingArray.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORException.h"

#include "HBLCore/HBLFailure.h"

namespace detail = mrl::detail;

namespace mrl::detail {

template <>
void** memberValues<MRLBareGadget>(MRLBareGadget&, void**);
template <>
void** memberValues<MRLBox>(MRLBox&, void**);
template <>
void** memberValues<MRLFaultDetail>(MRLFaultDetail&, void**);
template <>
void** memberValues<MRLFaultDetailMessage>(MRLFaultDetailMessage&, void**);
template <>
void** memberValues<MRLGadget>(MRLGadget&, void**);
template <>
void** memberValues<MRLLabel>(MRLLabel&, void**);
template <>
void** memberValues<MRLMarker>(MRLMarker&, void**);
template <>
void** memberValues<MRLMessage>(MRLMessage&, void**);
template <>
void** memberValues<MRLPart>(MRLPart&, void**);
template <>
void** memberValues<MRLPromptInfo>(MRLPromptInfo&, void**);
template <>
void** memberValues<MRLSchemaInfo>(MRLSchemaInfo&, void**);
template <>
void** memberValues<MRLSwap>(MRLSwap&, void**);
template <>
void** memberValues<MRLTavelHeader>(MRLTavelHeader&, void**);
template <>
void** memberValues<MRLThing>(MRLThing&, void**);
template <>
void** memberValues<MRLZOR>(MRLZOR&, void**);
template <>
void** memberValues<MRLZORException>(MRLZORException&, void**);

} // namespace mrl::detail

// -- MRLTavelHeader -----------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLTavelHeader::getObjectType() const {
    return s_objectType;
}

const std::string& MRLTavelHeader::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLTavelHeader::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x6CEE1166: return detail::childObject(m_data->ZOR, create); // ZOR
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLTavelHeader::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x6CEE1166: return eMRLZOR; // ZOR
    default: return e_Unknown;
    }
}

std::size_t MRLTavelHeader::setChildObject(const char* name, void* obj, const ObjectType& type,
                                           std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLTavelHeader::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x6CEE1166: // ZOR
        detail::setObject(m_data->ZOR, obj, type, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLTavelHeader::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0x6CEE1166 // ZOR
                               });
}

std::size_t MRLTavelHeader::getChildObjectCount() const {
    return 1;
}

namespace mrl::detail {

template <>
void** memberValues<MRLTavelHeader>(MRLTavelHeader& object, void** values) {
    *values++ = memberValue(object.getZOR());
    return values;
}

} // namespace mrl::detail

// -- MRLZOR -------------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLZOR::getObjectType() const {
    return s_objectType;
}

const std::string& MRLZOR::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLZOR::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0xB63E2EC7: return detail::childObject(m_data->roles, create); // roles
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLZOR::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0xB63E2EC7: return eMRLStringArray; // roles
    default: return e_Unknown;
    }
}

std::size_t MRLZOR::setChildObject(const char* name, void* obj, const ObjectType& type,
                                   std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLZOR::setMember(std::uint32_t key, void* /*obj*/, const ObjectType& /*type*/) {
    if (m_data == nullptr)
        return 0;
    switch (key) {
    case 0xB63E2EC7: detail::refuseArrayMember("roles", s_className);
    default: return 0;
    }
}

void MRLZOR::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0xB63E2EC7 // roles
                               });
}

std::size_t MRLZOR::getChildObjectCount() const {
    return 1;
}

namespace mrl::detail {

template <>
void** memberValues<MRLZOR>(MRLZOR& object, void** values) {
    *values++ = memberValue(object.getRoles());
    return values;
}

} // namespace mrl::detail

// -- MRLZORException ----------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLZORException::getObjectType() const {
    return s_objectType;
}

const std::string& MRLZORException::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLZORException::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0xD8E3770A: return detail::childObject(m_data->errorCodeString, create); // errorCodeString
        case 0xDB021E96: return detail::childObject(m_data->messages, create); // messages
        case 0x65B39334: return detail::childObject(m_data->promptInfo, create); // promptInfo
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLZORException::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0xD8E3770A: return eString; // errorCodeString
    case 0xDB021E96: return eMRLStringArray; // messages
    case 0x65B39334: return eMRLPromptInfo; // promptInfo
    default: return e_Unknown;
    }
}

std::size_t MRLZORException::setChildObject(const char* name, void* obj, const ObjectType& type,
                                            std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLZORException::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0xD8E3770A: // errorCodeString
        detail::setText(m_data->errorCodeString, obj, type, owner, key);
        return 0;
    case 0xDB021E96: detail::refuseArrayMember("messages", s_className);
    case 0x65B39334: // promptInfo
        detail::setObject(m_data->promptInfo, obj, type, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLZORException::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0xD8E3770A, // errorCodeString
                                   0xDB021E96, // messages
                                   0x65B39334 // promptInfo
                               });
}

std::size_t MRLZORException::getChildObjectCount() const {
    return 3;
}

namespace mrl::detail {

template <>
void** memberValues<MRLZORException>(MRLZORException& object, void** values) {
    *values++ = memberValue(object.getErrorCodeString());
    *values++ = memberValue(object.getMessages());
    *values++ = memberValue(object.getPromptInfo());
    return values;
}

} // namespace mrl::detail

// -- MRLPromptInfo ------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLPromptInfo::getObjectType() const {
    return s_objectType;
}

const std::string& MRLPromptInfo::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLPromptInfo::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x26202695: return detail::childObject(m_data->captions, create); // captions
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLPromptInfo::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x26202695: return eMRLStringArray; // captions
    default: return e_Unknown;
    }
}

std::size_t MRLPromptInfo::setChildObject(const char* name, void* obj, const ObjectType& type,
                                          std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLPromptInfo::setMember(std::uint32_t key, void* /*obj*/, const ObjectType& /*type*/) {
    if (m_data == nullptr)
        return 0;
    switch (key) {
    case 0x26202695: detail::refuseArrayMember("captions", s_className);
    default: return 0;
    }
}

void MRLPromptInfo::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0x26202695 // captions
                               });
}

std::size_t MRLPromptInfo::getChildObjectCount() const {
    return 1;
}

namespace mrl::detail {

template <>
void** memberValues<MRLPromptInfo>(MRLPromptInfo& object, void** values) {
    *values++ = memberValue(object.getCaptions());
    return values;
}

} // namespace mrl::detail

// -- MRLFaultDetail -----------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLFaultDetail::getObjectType() const {
    return s_objectType;
}

const std::string& MRLFaultDetail::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLFaultDetail::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0xE9ACC930: return detail::childObject(m_data->errorCode, create); // errorCode
        case 0xB6BD307F: return detail::childObject(m_data->message, create); // message
        case 0xF660D16B: return detail::childObject(m_data->severity, create); // severity
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLFaultDetail::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0xE9ACC930: return eString; // errorCode
    case 0xB6BD307F: return eMRLFaultDetailMessageArray; // message
    case 0xF660D16B: return eString; // severity
    default: return e_Unknown;
    }
}

std::size_t MRLFaultDetail::setChildObject(const char* name, void* obj, const ObjectType& type,
                                           std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLFaultDetail::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0xE9ACC930: // errorCode
        detail::setText(m_data->errorCode, obj, type, owner, key);
        return 0;
    case 0xB6BD307F: detail::refuseArrayMember("message", s_className);
    case 0xF660D16B: // severity
        detail::setText(m_data->severity, obj, type, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLFaultDetail::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0xE9ACC930, // errorCode
                                   0xB6BD307F, // message
                                   0xF660D16B // severity
                               });
}

std::size_t MRLFaultDetail::getChildObjectCount() const {
    return 3;
}

namespace mrl::detail {

template <>
void** memberValues<MRLFaultDetail>(MRLFaultDetail& object, void** values) {
    *values++ = memberValue(object.getErrorCode());
    *values++ = memberValue(object.getMessage());
    *values++ = memberValue(object.getSeverity());
    return values;
}

} // namespace mrl::detail

// -- MRLFaultDetailMessage ----------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLFaultDetailMessage::getObjectType() const {
    return s_objectType;
}

const std::string& MRLFaultDetailMessage::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLFaultDetailMessage::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0xB6BD307F: return detail::childObject(m_data->message, create); // message
        case 0xB7D14881: return detail::childObject(m_data->nestingLevel, create); // nestingLevel
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLFaultDetailMessage::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0xB6BD307F: return eString; // message
    case 0xB7D14881: return eInt; // nestingLevel
    default: return e_Unknown;
    }
}

std::size_t MRLFaultDetailMessage::setChildObject(const char* name, void* obj, const ObjectType& type,
                                                  std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLFaultDetailMessage::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0xB6BD307F: // message
        detail::setText(m_data->message, obj, type, owner, key);
        return 0;
    case 0xB7D14881: // nestingLevel
        detail::setNullable(m_data->nestingLevel, obj, type, eInt, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLFaultDetailMessage::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0xB6BD307F, // message
                                   0xB7D14881 // nestingLevel
                               });
}

std::size_t MRLFaultDetailMessage::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLFaultDetailMessage>(MRLFaultDetailMessage& object, void** values) {
    *values++ = memberValue(object.getMessage());
    *values++ = memberValue(object.getNestingLevel());
    return values;
}

} // namespace mrl::detail

// -- MRLMessage ---------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLMessage::getObjectType() const {
    return s_objectType;
}

const std::string& MRLMessage::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLMessage::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0xEC8CA4E8: return detail::childObject(m_data->messageString, create); // messageString
        case 0xB7D14881: return detail::childObject(m_data->nestingLevel, create); // nestingLevel
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLMessage::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0xEC8CA4E8: return eString; // messageString
    case 0xB7D14881: return eInt; // nestingLevel
    default: return e_Unknown;
    }
}

std::size_t MRLMessage::setChildObject(const char* name, void* obj, const ObjectType& type,
                                       std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLMessage::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0xEC8CA4E8: // messageString
        detail::setText(m_data->messageString, obj, type, owner, key);
        return 0;
    case 0xB7D14881: // nestingLevel
        detail::setNullable(m_data->nestingLevel, obj, type, eInt, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLMessage::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0xEC8CA4E8, // messageString
                                   0xB7D14881 // nestingLevel
                               });
}

std::size_t MRLMessage::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLMessage>(MRLMessage& object, void** values) {
    *values++ = memberValue(object.getMessageString());
    *values++ = memberValue(object.getNestingLevel());
    return values;
}

} // namespace mrl::detail

// -- MRLSchemaInfo ------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLSchemaInfo::getObjectType() const {
    return s_objectType;
}

const std::string& MRLSchemaInfo::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLSchemaInfo::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x7810C99B: return detail::childObject(m_data->modifiable, create); // modifiable
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLSchemaInfo::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x7810C99B: return eBoolean; // modifiable
    default: return e_Unknown;
    }
}

std::size_t MRLSchemaInfo::setChildObject(const char* name, void* obj, const ObjectType& type,
                                          std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLSchemaInfo::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x7810C99B: // modifiable
        detail::setNullable(m_data->modifiable, obj, type, eBoolean, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLSchemaInfo::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0x7810C99B // modifiable
                               });
}

std::size_t MRLSchemaInfo::getChildObjectCount() const {
    return 1;
}

namespace mrl::detail {

template <>
void** memberValues<MRLSchemaInfo>(MRLSchemaInfo& object, void** values) {
    *values++ = memberValue(object.getModifiable());
    return values;
}

} // namespace mrl::detail

// -- MRLThing -----------------------------------------------------------------------------------------------

const std::string& MRLThing::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLThing::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x5E237E06: return detail::childObject(m_data->name, create); // name
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLThing::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x5E237E06: return eString; // name
    default: return e_Unknown;
    }
}

std::size_t MRLThing::setChildObject(const char* name, void* obj, const ObjectType& type,
                                     std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLThing::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x5E237E06: // name
        detail::setText(m_data->name, obj, type, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLThing::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0x5E237E06 // name
                               });
}

std::size_t MRLThing::getChildObjectCount() const {
    return 1;
}

namespace mrl::detail {

template <>
void** memberValues<MRLThing>(MRLThing& object, void** values) {
    *values++ = memberValue(object.getName());
    return values;
}

} // namespace mrl::detail

// -- MRLGadget ----------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLGadget::getObjectType() const {
    return s_objectType;
}

const std::string& MRLGadget::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLGadget::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x4B1EFC02: return detail::childObject(m_data->active, create); // active
        case 0x85D94462: return detail::childObject(m_data->count, create); // count
        case 0xADF3F363: return detail::childObject(m_data->data, create); // data
        case 0xEF7509F8: return detail::childObject(m_data->for_, create); // for
        case 0x7CAB4694: return detail::childObject(m_data->keeper, create); // keeper
        case 0x490F70C6: return detail::childObject(m_data->part, create); // part
        case 0x6940A7FE: return detail::childObject(m_data->parts, create); // parts
        case 0xFC60B87F: return detail::childObject(m_data->ratio, create); // ratio
        case 0xDD30FFD8: return detail::childObject(m_data->shape, create); // shape
        case 0xB69E8769: return detail::childObject(m_data->sizes, create); // sizes
        case 0x6FBC9426: return detail::childObject(m_data->tags, create); // tags
        case 0xC22FE15E: return detail::childObject(m_data->total, create); // total
        default: break;
        }
    }
    return MRLThing::getChildObject(name, create);
}

MRLSchemaTypeI::ObjectType MRLGadget::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x4B1EFC02: return eBoolean; // active
    case 0x85D94462: return eInt; // count
    case 0xADF3F363: return eBase64Binary; // data
    case 0xEF7509F8: return eString; // for
    case 0x7CAB4694: return eMRLThing; // keeper
    case 0x490F70C6: return eMRLPart; // part
    case 0x6940A7FE: return eMRLPartArray; // parts
    case 0xFC60B87F: return eDecimal; // ratio
    case 0xDD30FFD8: return eMRLShapeEnum; // shape
    case 0xB69E8769: return eMRLIntArray; // sizes
    case 0x6FBC9426: return eMRLStringArray; // tags
    case 0xC22FE15E: return eInteger; // total
    default: return MRLThing::getChildType(name);
    }
}

std::size_t MRLGadget::setChildObject(const char* name, void* obj, const ObjectType& type,
                                      std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLGadget::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x4B1EFC02: // active
        detail::setNullable(m_data->active, obj, type, eBoolean, owner, key);
        return 0;
    case 0x85D94462: // count
        detail::setNullable(m_data->count, obj, type, eInt, owner, key);
        return 0;
    case 0xADF3F363: // data
        detail::setBase64(m_data->data, obj, type, owner, key);
        return 0;
    case 0xEF7509F8: // for
        detail::setText(m_data->for_, obj, type, owner, key);
        return 0;
    case 0x7CAB4694: // keeper
        detail::setObject(m_data->keeper, obj, type, owner, key);
        return 0;
    case 0x490F70C6: // part
        detail::setObject(m_data->part, obj, type, owner, key);
        return 0;
    case 0x6940A7FE: detail::refuseArrayMember("parts", s_className);
    case 0xFC60B87F: // ratio
        detail::setNullable(m_data->ratio, obj, type, eDecimal, owner, key);
        return 0;
    case 0xDD30FFD8: // shape
        detail::setObject(m_data->shape, obj, type, owner, key);
        return 0;
    case 0xB69E8769: detail::refuseArrayMember("sizes", s_className);
    case 0x6FBC9426: detail::refuseArrayMember("tags", s_className);
    case 0xC22FE15E: // total
        detail::setNullable(m_data->total, obj, type, eInteger, owner, key);
        return 0;
    default: return MRLThing::setMember(key, obj, type);
    }
}

void MRLGadget::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    MRLThing::getChildObjectNames(names, false);
    detail::appendNames(names, {
                                   0x4B1EFC02, // active
                                   0x85D94462, // count
                                   0xADF3F363, // data
                                   0xEF7509F8, // for
                                   0x7CAB4694, // keeper
                                   0x490F70C6, // part
                                   0x6940A7FE, // parts
                                   0xFC60B87F, // ratio
                                   0xDD30FFD8, // shape
                                   0xB69E8769, // sizes
                                   0x6FBC9426, // tags
                                   0xC22FE15E // total
                               });
}

std::size_t MRLGadget::getChildObjectCount() const {
    return 13;
}

namespace mrl::detail {

template <>
void** memberValues<MRLGadget>(MRLGadget& object, void** values) {
    values = memberValues<MRLThing>(object, values);
    *values++ = memberValue(object.getActive());
    *values++ = memberValue(object.getCount());
    *values++ = memberValue(object.getData());
    *values++ = memberValue(object.getFor());
    *values++ = memberValue(object.getKeeper());
    *values++ = memberValue(object.getPart());
    *values++ = memberValue(object.getParts());
    *values++ = object.getChildObject("ratio", 0);
    *values++ = memberValue(object.getShape());
    *values++ = memberValue(object.getSizes());
    *values++ = memberValue(object.getTags());
    *values++ = memberValue(object.getTotal());
    return values;
}

} // namespace mrl::detail

// -- MRLBareGadget ------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLBareGadget::getObjectType() const {
    return s_objectType;
}

const std::string& MRLBareGadget::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

namespace mrl::detail {

template <>
void** memberValues<MRLBareGadget>(MRLBareGadget& object, void** values) {
    return memberValues<MRLGadget>(object, values);
}

} // namespace mrl::detail

// -- MRLPart ------------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLPart::getObjectType() const {
    return s_objectType;
}

const std::string& MRLPart::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLPart::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0xF54DE50F: return detail::childObject(m_data->height, create); // height
        case 0x8C1A452F: return detail::childObject(m_data->width, create); // width
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLPart::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0xF54DE50F: return eInt; // height
    case 0x8C1A452F: return eInt; // width
    default: return e_Unknown;
    }
}

std::size_t MRLPart::setChildObject(const char* name, void* obj, const ObjectType& type,
                                    std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLPart::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0xF54DE50F: // height
        detail::setNullable(m_data->height, obj, type, eInt, owner, key);
        return 0;
    case 0x8C1A452F: // width
        detail::setNullable(m_data->width, obj, type, eInt, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLPart::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0xF54DE50F, // height
                                   0x8C1A452F // width
                               });
}

std::size_t MRLPart::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLPart>(MRLPart& object, void** values) {
    *values++ = memberValue(object.getHeight());
    *values++ = memberValue(object.getWidth());
    return values;
}

} // namespace mrl::detail

// -- MRLLabel -----------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLLabel::getObjectType() const {
    return s_objectType;
}

const std::string& MRLLabel::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLLabel::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x00000000: return detail::childObject(m_data->value, create); // the text itself
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLLabel::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x00000000: return eString; // the text itself
    default: return e_Unknown;
    }
}

std::size_t MRLLabel::setChildObject(const char* name, void* obj, const ObjectType& type,
                                     std::size_t* /*index*/) {
    HBL_ASSERT(name);
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLLabel::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0x00000000: // the text itself
        detail::setText(m_data->value, obj, type, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLLabel::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    names.push_back("");
}

std::size_t MRLLabel::getChildObjectCount() const {
    return 1;
}

namespace mrl::detail {

template <>
void** memberValues<MRLLabel>(MRLLabel& object, void** values) {
    *values++ = memberValue(object.getValue());
    return values;
}

} // namespace mrl::detail

// -- MRLBox -------------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLBox::getObjectType() const {
    return s_objectType;
}

const std::string& MRLBox::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLBox::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0x6FE451BD: return detail::childObject(m_data->things, create); // things
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLBox::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0x6FE451BD: return eMRLThingArray; // things
    default: return e_Unknown;
    }
}

std::size_t MRLBox::setChildObject(const char* name, void* obj, const ObjectType& type,
                                   std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLBox::setMember(std::uint32_t key, void* /*obj*/, const ObjectType& /*type*/) {
    if (m_data == nullptr)
        return 0;
    switch (key) {
    case 0x6FE451BD: detail::refuseArrayMember("things", s_className);
    default: return 0;
    }
}

void MRLBox::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0x6FE451BD // things
                               });
}

std::size_t MRLBox::getChildObjectCount() const {
    return 1;
}

namespace mrl::detail {

template <>
void** memberValues<MRLBox>(MRLBox& object, void** values) {
    *values++ = memberValue(object.getThings());
    return values;
}

} // namespace mrl::detail

// -- MRLMarker ----------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLMarker::getObjectType() const {
    return s_objectType;
}

const std::string& MRLMarker::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLMarker::getChildObject(const char* name, int /*create*/) {
    HBL_ASSERT(name);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLMarker::getChildType(const char* name) const {
    HBL_ASSERT(name);
    return e_Unknown;
}

std::size_t MRLMarker::setChildObject(const char* name, void* obj, const ObjectType& /*type*/,
                                      std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name != '\0')
        HBL_ASSERT(obj != NULL);
    return 0;
}

std::size_t MRLMarker::setMember(std::uint32_t /*key*/, void* /*obj*/, const ObjectType& /*type*/) {
    return 0;
}

void MRLMarker::getChildObjectNames(std::vector<const char*>& /*names*/, bool /*reserve*/) const {}

std::size_t MRLMarker::getChildObjectCount() const {
    return 0;
}

namespace mrl::detail {

template <>
void** memberValues<MRLMarker>(MRLMarker& /*object*/, void** values) {
    return values;
}

} // namespace mrl::detail

// -- MRLSwap ------------------------------------------------------------------------------------------------

MRLSchemaTypeI::ObjectType MRLSwap::getObjectType() const {
    return s_objectType;
}

const std::string& MRLSwap::getGeneratedObjectName() const {
    static const std::string name = s_className;
    return name;
}

void* MRLSwap::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (m_data != nullptr) {
        switch (detail::childKey(name)) {
        case 0xB61F1169: return detail::childObject(m_data->second, create); // second
        case 0x9271EE57: return detail::childObject(m_data->first, create); // first
        default: break;
        }
    }
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLSwap::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (detail::childKey(name)) {
    case 0xB61F1169: return eString; // second
    case 0x9271EE57: return eString; // first
    default: return e_Unknown;
    }
}

std::size_t MRLSwap::setChildObject(const char* name, void* obj, const ObjectType& type,
                                    std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    return setMember(detail::childKey(name), obj, type);
}

std::size_t MRLSwap::setMember(std::uint32_t key, void* obj, const ObjectType& type) {
    if (m_data == nullptr)
        return 0;
    constexpr auto owner = static_cast<std::uint32_t>(s_objectType);
    switch (key) {
    case 0xB61F1169: // second
        detail::setText(m_data->second, obj, type, owner, key);
        return 0;
    case 0x9271EE57: // first
        detail::setText(m_data->first, obj, type, owner, key);
        return 0;
    default: return 0;
    }
}

void MRLSwap::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve)
        names.reserve(getChildObjectCount());
    detail::appendNames(names, {
                                   0xB61F1169, // second
                                   0x9271EE57 // first
                               });
}

std::size_t MRLSwap::getChildObjectCount() const {
    return 2;
}

namespace mrl::detail {

template <>
void** memberValues<MRLSwap>(MRLSwap& object, void** values) {
    *values++ = memberValue(object.getSecond());
    *values++ = memberValue(object.getFirst());
    return values;
}

} // namespace mrl::detail
