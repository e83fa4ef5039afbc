// Generated from the catalogue: what the runtime asks a message by name.
#include "Toolkit/MRLMessages1_gen_.h"

#include "Toolkit/MRLMessageMembers.h"
#include "Toolkit/MRL_Null_Reply.h"
#include "Toolkit/MRL_Null_Request.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLClear_Reply.h"
#include "Toolkit/MRLClear_Request.h"
#include "Toolkit/MRLFind_1_Reply.h"
#include "Toolkit/MRLFind_1_Request.h"
#include "Toolkit/MRLFind_2_Reply.h"
#include "Toolkit/MRLFind_2_Request.h"
#include "Toolkit/MRLLabel.h"
#include "Toolkit/MRLThing.h"
#include "Toolkit/MRLThingArray.h"

#include "HBLCore/HBLFailure.h"

namespace detail = mrl::detail;

// -- MRL_Null_Request ---------------------------------------------------------------------------------------

MRLMessageI::MessageType MRL_Null_Request::getMessageType() const {
    return s_messageType;
}

const char* MRL_Null_Request::getGeneratedMessageName() const {
    return s_messageName;
}

void MRL_Null_Request::getParameterNames(std::vector<const char*>& /*names*/) const {}

void* MRL_Null_Request::getParameter(const char* name, int /*create*/) {
    HBL_ASSERT(name);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRL_Null_Request::getParameterType(const char* name) {
    HBL_ASSERT(name);
    return MRLSchemaTypeI::e_Unknown;
}

void MRL_Null_Request::setParameter(const char* name, void* /*value*/, const ObjectType& /*type*/) {
    HBL_ASSERT(name);
}

// -- MRL_Null_Reply -----------------------------------------------------------------------------------------

MRLMessageI::MessageType MRL_Null_Reply::getMessageType() const {
    return s_messageType;
}

const char* MRL_Null_Reply::getGeneratedMessageName() const {
    return s_messageName;
}

void MRL_Null_Reply::getParameterNames(std::vector<const char*>& /*names*/) const {}

void* MRL_Null_Reply::getParameter(const char* name, int /*create*/) {
    HBL_ASSERT(name);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRL_Null_Reply::getParameterType(const char* name) {
    HBL_ASSERT(name);
    return MRLSchemaTypeI::e_Unknown;
}

void MRL_Null_Reply::setParameter(const char* name, void* /*value*/, const ObjectType& /*type*/) {
    HBL_ASSERT(name);
}

// -- MRLClear_Request ---------------------------------------------------------------------------------------

MRLMessageI::MessageType MRLClear_Request::getMessageType() const {
    return s_messageType;
}

const char* MRLClear_Request::getGeneratedMessageName() const {
    return s_messageName;
}

void MRLClear_Request::getParameterNames(std::vector<const char*>& /*names*/) const {}

void* MRLClear_Request::getParameter(const char* name, int /*create*/) {
    HBL_ASSERT(name);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLClear_Request::getParameterType(const char* name) {
    HBL_ASSERT(name);
    return MRLSchemaTypeI::e_Unknown;
}

void MRLClear_Request::setParameter(const char* name, void* /*value*/, const ObjectType& /*type*/) {
    HBL_ASSERT(name);
}

// -- MRLClear_Reply -----------------------------------------------------------------------------------------

MRLMessageI::MessageType MRLClear_Reply::getMessageType() const {
    return s_messageType;
}

const char* MRLClear_Reply::getGeneratedMessageName() const {
    return s_messageName;
}

void MRLClear_Reply::getParameterNames(std::vector<const char*>& /*names*/) const {}

void* MRLClear_Reply::getParameter(const char* name, int /*create*/) {
    HBL_ASSERT(name);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLClear_Reply::getParameterType(const char* name) {
    HBL_ASSERT(name);
    return MRLSchemaTypeI::e_Unknown;
}

void MRLClear_Reply::setParameter(const char* name, void* /*value*/, const ObjectType& /*type*/) {
    HBL_ASSERT(name);
}

// -- MRLFind_1_Request --------------------------------------------------------------------------------------

MRLMessageI::MessageType MRLFind_1_Request::getMessageType() const {
    return s_messageType;
}

const char* MRLFind_1_Request::getGeneratedMessageName() const {
    return s_messageName;
}

void MRLFind_1_Request::getParameterNames(std::vector<const char*>& names) const {
    names.reserve(2);
    detail::appendNames(names, {
                                   0x5E237E06, // name
                                   0x7F96E860 // limit
                               });
}

void* MRLFind_1_Request::getParameter(const char* name, int create) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x5E237E06)) // name
        return detail::childObject(m_data->name, create);
    if (detail::isParameter(name, 0x7F96E860)) // limit
        return detail::childObject(m_data->limit, create);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLFind_1_Request::getParameterType(const char* name) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x5E237E06)) // name
        return MRLSchemaTypeI::eString;
    if (detail::isParameter(name, 0x7F96E860)) // limit
        return MRLSchemaTypeI::eInt;
    return MRLSchemaTypeI::e_Unknown;
}

void MRLFind_1_Request::setParameter(const char* name, void* value, const ObjectType& type) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x5E237E06)) // name
        return detail::setTextParameter(m_data->name, value, type, s_messageName, "name");
    if (detail::isParameter(name, 0x7F96E860)) // limit
        return detail::setNullableParameter(m_data->limit, value, type, MRLSchemaTypeI::eInt,
                                            s_messageName, "limit");
}

// -- MRLFind_1_Reply ----------------------------------------------------------------------------------------

MRLMessageI::MessageType MRLFind_1_Reply::getMessageType() const {
    return s_messageType;
}

const char* MRLFind_1_Reply::getGeneratedMessageName() const {
    return s_messageName;
}

void MRLFind_1_Reply::getParameterNames(std::vector<const char*>& names) const {
    names.reserve(1);
    detail::appendNames(names, {
                                   0x136AC113 // result
                               });
}

void* MRLFind_1_Reply::getParameter(const char* name, int create) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x136AC113)) // result
        return detail::childObject(m_data->result, create);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLFind_1_Reply::getParameterType(const char* name) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x136AC113)) // result
        return detail::parameterType(m_data->result);
    return MRLSchemaTypeI::e_Unknown;
}

void MRLFind_1_Reply::setParameter(const char* name, void* value, const ObjectType& type) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x136AC113)) // result
        return detail::setObjectParameter(m_data->result, value, type, s_messageName, "result");
}

// -- MRLFind_2_Request --------------------------------------------------------------------------------------

MRLMessageI::MessageType MRLFind_2_Request::getMessageType() const {
    return s_messageType;
}

const char* MRLFind_2_Request::getGeneratedMessageName() const {
    return s_messageName;
}

void MRLFind_2_Request::getParameterNames(std::vector<const char*>& names) const {
    names.reserve(5);
    detail::appendNames(names, {
                                   0xAC6340B3, // like
                                   0x0EA750E8, // label
                                   0x69D6AB05, // exact
                                   0x16DB4F89, // picture
                                   0x7F96E860 // limit
                               });
}

void* MRLFind_2_Request::getParameter(const char* name, int create) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0xAC6340B3)) // like
        return detail::childObject(m_data->like, create);
    if (detail::isParameter(name, 0x0EA750E8)) // label
        return detail::childObject(m_data->label, create);
    if (detail::isParameter(name, 0x69D6AB05)) // exact
        return detail::childObject(m_data->exact, create);
    if (detail::isParameter(name, 0x16DB4F89)) // picture
        return detail::childObject(m_data->picture, create);
    if (detail::isParameter(name, 0x7F96E860)) // limit
        return detail::childObject(m_data->limit, create);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLFind_2_Request::getParameterType(const char* name) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0xAC6340B3)) // like
        return detail::parameterType(m_data->like);
    if (detail::isParameter(name, 0x0EA750E8)) // label
        return detail::parameterType(m_data->label);
    if (detail::isParameter(name, 0x69D6AB05)) // exact
        return MRLSchemaTypeI::eBoolean;
    if (detail::isParameter(name, 0x16DB4F89)) // picture
        return MRLSchemaTypeI::eBase64Binary;
    if (detail::isParameter(name, 0x7F96E860)) // limit
        return MRLSchemaTypeI::eInteger;
    return MRLSchemaTypeI::e_Unknown;
}

void MRLFind_2_Request::setParameter(const char* name, void* value, const ObjectType& type) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0xAC6340B3)) // like
        return detail::setObjectParameter(m_data->like, value, type, s_messageName, "like");
    if (detail::isParameter(name, 0x0EA750E8)) // label
        return detail::setObjectParameter(m_data->label, value, type, s_messageName, "label");
    if (detail::isParameter(name, 0x69D6AB05)) // exact
        return detail::setNullableParameter(m_data->exact, value, type, MRLSchemaTypeI::eBoolean,
                                            s_messageName, "exact");
    if (detail::isParameter(name, 0x16DB4F89)) // picture
        return detail::setBase64Parameter(m_data->picture, value, type, s_messageName, "picture");
    if (detail::isParameter(name, 0x7F96E860)) // limit
        return detail::setNullableParameter(m_data->limit, value, type, MRLSchemaTypeI::eInteger,
                                            s_messageName, "limit");
}

// -- MRLFind_2_Reply ----------------------------------------------------------------------------------------

MRLMessageI::MessageType MRLFind_2_Reply::getMessageType() const {
    return s_messageType;
}

const char* MRLFind_2_Reply::getGeneratedMessageName() const {
    return s_messageName;
}

void MRLFind_2_Reply::getParameterNames(std::vector<const char*>& names) const {
    names.reserve(1);
    detail::appendNames(names, {
                                   0x136AC113 // result
                               });
}

void* MRLFind_2_Reply::getParameter(const char* name, int create) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x136AC113)) // result
        return detail::childObject(m_data->result, create);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLFind_2_Reply::getParameterType(const char* name) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x136AC113)) // result
        return detail::parameterType(m_data->result);
    return MRLSchemaTypeI::e_Unknown;
}

void MRLFind_2_Reply::setParameter(const char* name, void* value, const ObjectType& type) {
    HBL_ASSERT(name);
    if (detail::isParameter(name, 0x136AC113)) // result
        return detail::setObjectParameter(m_data->result, value, type, s_messageName, "result");
}
