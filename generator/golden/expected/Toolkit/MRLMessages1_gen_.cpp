// Generated from the catalogue: construction of messages and typed access to their parameters.
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

MRL_Null_Request::MRL_Null_Request() = default;

MRL_Null_Request::~MRL_Null_Request() = default;

// -- MRL_Null_Reply -----------------------------------------------------------------------------------------

MRL_Null_Reply::MRL_Null_Reply() = default;

MRL_Null_Reply::~MRL_Null_Reply() = default;

// -- MRLClear_Request ---------------------------------------------------------------------------------------

MRLClear_Request::MRLClear_Request() = default;

MRLClear_Request::~MRLClear_Request() = default;

// -- MRLClear_Reply -----------------------------------------------------------------------------------------

MRLClear_Reply::MRLClear_Reply() = default;

MRLClear_Reply::~MRLClear_Reply() = default;

// -- MRLFind_1_Request --------------------------------------------------------------------------------------

MRLFind_1_Request_PrivateData::~MRLFind_1_Request_PrivateData() = default;

MRLFind_1_Request::MRLFind_1_Request()
    : m_data(hblNew<MRLFind_1_Request_PrivateData>(HBL_HERE)) {}

MRLFind_1_Request::~MRLFind_1_Request() {
    delete m_data;
}

const char* MRLFind_1_Request::getName() const {
    return m_data->name;
}

void MRLFind_1_Request::setName(const char* value) {
    m_data->name = value;
}

int* MRLFind_1_Request::getLimit() const {
    return m_data->limit.get();
}

void MRLFind_1_Request::setLimit(int value) {
    m_data->limit.set(value);
}

void MRLFind_1_Request::resetLimit() {
    m_data->limit.reset();
}

// -- MRLFind_1_Reply ----------------------------------------------------------------------------------------

MRLFind_1_Reply_PrivateData::~MRLFind_1_Reply_PrivateData() = default;

MRLFind_1_Reply::MRLFind_1_Reply()
    : m_data(hblNew<MRLFind_1_Reply_PrivateData>(HBL_HERE)) {}

MRLFind_1_Reply::~MRLFind_1_Reply() {
    delete m_data;
}

MRLThingArray* MRLFind_1_Reply::getResult() const {
    return m_data->result;
}

MRLThingArray* MRLFind_1_Reply::getResult(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->result, registry);
}

void MRLFind_1_Reply::setResult(MRLThingArray* value) {
    m_data->result = value;
}

// -- MRLFind_2_Request --------------------------------------------------------------------------------------

MRLFind_2_Request_PrivateData::~MRLFind_2_Request_PrivateData() = default;

MRLFind_2_Request::MRLFind_2_Request()
    : m_data(hblNew<MRLFind_2_Request_PrivateData>(HBL_HERE)) {}

MRLFind_2_Request::~MRLFind_2_Request() {
    delete m_data;
}

MRLThing* MRLFind_2_Request::getLike() const {
    return m_data->like;
}

MRLThing* MRLFind_2_Request::getLike(MRLObjectRegistryI* registry) {
    return detail::lazyAbstract(m_data->like, registry);
}

void MRLFind_2_Request::setLike(MRLThing* value) {
    m_data->like = value;
}

MRLLabel* MRLFind_2_Request::getLabel() const {
    return m_data->label;
}

MRLLabel* MRLFind_2_Request::getLabel(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->label, registry);
}

void MRLFind_2_Request::setLabel(MRLLabel* value) {
    m_data->label = value;
}

int* MRLFind_2_Request::getExact() const {
    return m_data->exact.get();
}

void MRLFind_2_Request::setExact(int value) {
    m_data->exact.set(value);
}

void MRLFind_2_Request::resetExact() {
    m_data->exact.reset();
}

MRLBase64Binary* MRLFind_2_Request::getPicture() const {
    return m_data->picture;
}

MRLBase64Binary* MRLFind_2_Request::getPicture(MRLObjectRegistryI* registry) {
    return detail::lazyBase64(m_data->picture, registry);
}

void MRLFind_2_Request::setPicture(MRLBase64Binary* value) {
    m_data->picture = value;
}

int* MRLFind_2_Request::getLimit() const {
    return m_data->limit.get();
}

void MRLFind_2_Request::setLimit(int value) {
    m_data->limit.set(value);
}

void MRLFind_2_Request::resetLimit() {
    m_data->limit.reset();
}

// -- MRLFind_2_Reply ----------------------------------------------------------------------------------------

MRLFind_2_Reply_PrivateData::~MRLFind_2_Reply_PrivateData() = default;

MRLFind_2_Reply::MRLFind_2_Reply()
    : m_data(hblNew<MRLFind_2_Reply_PrivateData>(HBL_HERE)) {}

MRLFind_2_Reply::~MRLFind_2_Reply() {
    delete m_data;
}

MRLThingArray* MRLFind_2_Reply::getResult() const {
    return m_data->result;
}

MRLThingArray* MRLFind_2_Reply::getResult(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->result, registry);
}

void MRLFind_2_Reply::setResult(MRLThingArray* value) {
    m_data->result = value;
}
