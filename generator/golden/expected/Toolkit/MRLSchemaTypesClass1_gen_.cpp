// Generated from the catalogue: construction, copies, comparison and typed access.
#include "Toolkit/MRLSchemaTypesClass1_gen_.h"

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

// -- MRLTavelHeader -----------------------------------------------------------------------------------------

MRLTavelHeader_PrivateData::MRLTavelHeader_PrivateData(const MRLTavelHeader_PrivateData& other,
                                                       MRLObjectRegistryI& registry)
    : ZOR(detail::copyObject(other.ZOR, registry)) {}

MRLTavelHeader_PrivateData::~MRLTavelHeader_PrivateData() = default;

int MRLTavelHeader_PrivateData::operator!=(const MRLTavelHeader_PrivateData& other) const {
    return !(*this == other);
}

int MRLTavelHeader_PrivateData::operator==(const MRLTavelHeader_PrivateData& other) const {
    return detail::equalObject(ZOR, other.ZOR);
}

MRLTavelHeader::MRLTavelHeader()
    : m_data(hblNew<MRLTavelHeader_PrivateData>(HBL_HERE)) {}

MRLTavelHeader::MRLTavelHeader(const MRLTavelHeader& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLTavelHeader_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLTavelHeader::~MRLTavelHeader() {
    delete m_data;
}

int MRLTavelHeader::isa(ObjectType type) const {
    return type == eMRLTavelHeader;
}

int MRLTavelHeader::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLTavelHeader&>(other).m_data);
}

int MRLTavelHeader::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLTavelHeader::operator==(other);
}

MRLZOR* MRLTavelHeader::getZOR() const {
    return m_data->ZOR;
}

MRLZOR* MRLTavelHeader::getZOR(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->ZOR, registry);
}

void MRLTavelHeader::setZOR(MRLZOR* value) {
    m_data->ZOR = value;
}

// -- MRLZOR -------------------------------------------------------------------------------------------------

MRLZOR_PrivateData::MRLZOR_PrivateData(const MRLZOR_PrivateData& other, MRLObjectRegistryI& registry)
    : roles(other.roles, registry) {}

MRLZOR_PrivateData::~MRLZOR_PrivateData() = default;

int MRLZOR_PrivateData::operator!=(const MRLZOR_PrivateData& other) const {
    return !(*this == other);
}

int MRLZOR_PrivateData::operator==(const MRLZOR_PrivateData& other) const {
    return roles == other.roles;
}

MRLZOR::MRLZOR()
    : m_data(hblNew<MRLZOR_PrivateData>(HBL_HERE)) {}

MRLZOR::MRLZOR(const MRLZOR& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLZOR_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLZOR::~MRLZOR() {
    delete m_data;
}

int MRLZOR::isa(ObjectType type) const {
    return type == eMRLZOR;
}

int MRLZOR::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLZOR&>(other).m_data);
}

int MRLZOR::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLZOR::operator==(other);
}

MRLStringArray& MRLZOR::getRoles() const {
    return m_data->roles;
}

// -- MRLZORException ----------------------------------------------------------------------------------------

MRLZORException_PrivateData::MRLZORException_PrivateData(const MRLZORException_PrivateData& other,
                                                         MRLObjectRegistryI& registry)
    : errorCodeString(detail::copyText(other.errorCodeString, registry))
    , messages(other.messages, registry)
    , promptInfo(detail::copyObject(other.promptInfo, registry)) {}

MRLZORException_PrivateData::~MRLZORException_PrivateData() = default;

int MRLZORException_PrivateData::operator!=(const MRLZORException_PrivateData& other) const {
    return !(*this == other);
}

int MRLZORException_PrivateData::operator==(const MRLZORException_PrivateData& other) const {
    return detail::equalText(errorCodeString, other.errorCodeString) &&
           messages == other.messages &&
           detail::equalObject(promptInfo, other.promptInfo);
}

MRLZORException::MRLZORException()
    : m_data(hblNew<MRLZORException_PrivateData>(HBL_HERE)) {}

MRLZORException::MRLZORException(const MRLZORException& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLZORException_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLZORException::~MRLZORException() {
    delete m_data;
}

int MRLZORException::isa(ObjectType type) const {
    return type == eMRLZORException;
}

int MRLZORException::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLZORException&>(other).m_data);
}

int MRLZORException::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLZORException::operator==(other);
}

const char* MRLZORException::getErrorCodeString() const {
    return m_data->errorCodeString;
}

void MRLZORException::setErrorCodeString(const char* value) {
    m_data->errorCodeString = value;
}

MRLStringArray& MRLZORException::getMessages() const {
    return m_data->messages;
}

MRLPromptInfo* MRLZORException::getPromptInfo() const {
    return m_data->promptInfo;
}

MRLPromptInfo* MRLZORException::getPromptInfo(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->promptInfo, registry);
}

void MRLZORException::setPromptInfo(MRLPromptInfo* value) {
    m_data->promptInfo = value;
}

// -- MRLPromptInfo ------------------------------------------------------------------------------------------

MRLPromptInfo_PrivateData::MRLPromptInfo_PrivateData(const MRLPromptInfo_PrivateData& other,
                                                     MRLObjectRegistryI& registry)
    : captions(other.captions, registry) {}

MRLPromptInfo_PrivateData::~MRLPromptInfo_PrivateData() = default;

int MRLPromptInfo_PrivateData::operator!=(const MRLPromptInfo_PrivateData& other) const {
    return !(*this == other);
}

int MRLPromptInfo_PrivateData::operator==(const MRLPromptInfo_PrivateData& other) const {
    return captions == other.captions;
}

MRLPromptInfo::MRLPromptInfo()
    : m_data(hblNew<MRLPromptInfo_PrivateData>(HBL_HERE)) {}

MRLPromptInfo::MRLPromptInfo(const MRLPromptInfo& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLPromptInfo_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLPromptInfo::~MRLPromptInfo() {
    delete m_data;
}

int MRLPromptInfo::isa(ObjectType type) const {
    return type == eMRLPromptInfo;
}

int MRLPromptInfo::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLPromptInfo&>(other).m_data);
}

int MRLPromptInfo::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLPromptInfo::operator==(other);
}

MRLStringArray& MRLPromptInfo::getCaptions() const {
    return m_data->captions;
}

// -- MRLFaultDetail -----------------------------------------------------------------------------------------

MRLFaultDetail_PrivateData::MRLFaultDetail_PrivateData(const MRLFaultDetail_PrivateData& other,
                                                       MRLObjectRegistryI& registry)
    : errorCode(detail::copyText(other.errorCode, registry))
    , message(other.message, registry)
    , severity(detail::copyText(other.severity, registry)) {}

MRLFaultDetail_PrivateData::~MRLFaultDetail_PrivateData() = default;

int MRLFaultDetail_PrivateData::operator!=(const MRLFaultDetail_PrivateData& other) const {
    return !(*this == other);
}

int MRLFaultDetail_PrivateData::operator==(const MRLFaultDetail_PrivateData& other) const {
    return detail::equalText(errorCode, other.errorCode) &&
           message == other.message &&
           detail::equalText(severity, other.severity);
}

MRLFaultDetail::MRLFaultDetail()
    : m_data(hblNew<MRLFaultDetail_PrivateData>(HBL_HERE)) {}

MRLFaultDetail::MRLFaultDetail(const MRLFaultDetail& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLFaultDetail_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLFaultDetail::~MRLFaultDetail() {
    delete m_data;
}

int MRLFaultDetail::isa(ObjectType type) const {
    return type == eMRLFaultDetail;
}

int MRLFaultDetail::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLFaultDetail&>(other).m_data);
}

int MRLFaultDetail::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLFaultDetail::operator==(other);
}

const char* MRLFaultDetail::getErrorCode() const {
    return m_data->errorCode;
}

void MRLFaultDetail::setErrorCode(const char* value) {
    m_data->errorCode = value;
}

MRLFaultDetailMessageArray& MRLFaultDetail::getMessage() const {
    return m_data->message;
}

const char* MRLFaultDetail::getSeverity() const {
    return m_data->severity;
}

void MRLFaultDetail::setSeverity(const char* value) {
    m_data->severity = value;
}

// -- MRLFaultDetailMessage ----------------------------------------------------------------------------------

MRLFaultDetailMessage_PrivateData::MRLFaultDetailMessage_PrivateData(
    const MRLFaultDetailMessage_PrivateData& other, MRLObjectRegistryI& registry)
    : message(detail::copyText(other.message, registry))
    , nestingLevel(other.nestingLevel) {}

MRLFaultDetailMessage_PrivateData::~MRLFaultDetailMessage_PrivateData() = default;

int MRLFaultDetailMessage_PrivateData::operator!=(const MRLFaultDetailMessage_PrivateData& other) const {
    return !(*this == other);
}

int MRLFaultDetailMessage_PrivateData::operator==(const MRLFaultDetailMessage_PrivateData& other) const {
    return detail::equalText(message, other.message) &&
           nestingLevel == other.nestingLevel;
}

MRLFaultDetailMessage::MRLFaultDetailMessage()
    : m_data(hblNew<MRLFaultDetailMessage_PrivateData>(HBL_HERE)) {}

MRLFaultDetailMessage::MRLFaultDetailMessage(const MRLFaultDetailMessage& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLFaultDetailMessage_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLFaultDetailMessage::~MRLFaultDetailMessage() {
    delete m_data;
}

int MRLFaultDetailMessage::isa(ObjectType type) const {
    return type == eMRLFaultDetailMessage;
}

int MRLFaultDetailMessage::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLFaultDetailMessage&>(other).m_data);
}

int MRLFaultDetailMessage::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLFaultDetailMessage::operator==(other);
}

const char* MRLFaultDetailMessage::getMessage() const {
    return m_data->message;
}

void MRLFaultDetailMessage::setMessage(const char* value) {
    m_data->message = value;
}

int* MRLFaultDetailMessage::getNestingLevel() const {
    return m_data->nestingLevel.get();
}

void MRLFaultDetailMessage::setNestingLevel(int value) {
    m_data->nestingLevel.set(value);
}

void MRLFaultDetailMessage::resetNestingLevel() {
    m_data->nestingLevel.reset();
}

// -- MRLMessage ---------------------------------------------------------------------------------------------

MRLMessage_PrivateData::MRLMessage_PrivateData(const MRLMessage_PrivateData& other,
                                               MRLObjectRegistryI& registry)
    : messageString(detail::copyText(other.messageString, registry))
    , nestingLevel(other.nestingLevel) {}

MRLMessage_PrivateData::~MRLMessage_PrivateData() = default;

int MRLMessage_PrivateData::operator!=(const MRLMessage_PrivateData& other) const {
    return !(*this == other);
}

int MRLMessage_PrivateData::operator==(const MRLMessage_PrivateData& other) const {
    return detail::equalText(messageString, other.messageString) &&
           nestingLevel == other.nestingLevel;
}

MRLMessage::MRLMessage()
    : m_data(hblNew<MRLMessage_PrivateData>(HBL_HERE)) {}

MRLMessage::MRLMessage(const MRLMessage& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLMessage_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLMessage::~MRLMessage() {
    delete m_data;
}

int MRLMessage::isa(ObjectType type) const {
    return type == eMRLMessage;
}

int MRLMessage::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLMessage&>(other).m_data);
}

int MRLMessage::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLMessage::operator==(other);
}

const char* MRLMessage::getMessageString() const {
    return m_data->messageString;
}

void MRLMessage::setMessageString(const char* value) {
    m_data->messageString = value;
}

int* MRLMessage::getNestingLevel() const {
    return m_data->nestingLevel.get();
}

void MRLMessage::setNestingLevel(int value) {
    m_data->nestingLevel.set(value);
}

void MRLMessage::resetNestingLevel() {
    m_data->nestingLevel.reset();
}

// -- MRLSchemaInfo ------------------------------------------------------------------------------------------

MRLSchemaInfo_PrivateData::MRLSchemaInfo_PrivateData(const MRLSchemaInfo_PrivateData& other,
                                                     MRLObjectRegistryI& /*registry*/)
    : modifiable(other.modifiable) {}

MRLSchemaInfo_PrivateData::~MRLSchemaInfo_PrivateData() = default;

int MRLSchemaInfo_PrivateData::operator!=(const MRLSchemaInfo_PrivateData& other) const {
    return !(*this == other);
}

int MRLSchemaInfo_PrivateData::operator==(const MRLSchemaInfo_PrivateData& other) const {
    return modifiable == other.modifiable;
}

MRLSchemaInfo::MRLSchemaInfo()
    : m_data(hblNew<MRLSchemaInfo_PrivateData>(HBL_HERE)) {}

MRLSchemaInfo::MRLSchemaInfo(const MRLSchemaInfo& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLSchemaInfo_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLSchemaInfo::~MRLSchemaInfo() {
    delete m_data;
}

int MRLSchemaInfo::isa(ObjectType type) const {
    return type == eMRLSchemaInfo;
}

int MRLSchemaInfo::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLSchemaInfo&>(other).m_data);
}

int MRLSchemaInfo::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLSchemaInfo::operator==(other);
}

int* MRLSchemaInfo::getModifiable() const {
    return m_data->modifiable.get();
}

void MRLSchemaInfo::setModifiable(int value) {
    m_data->modifiable.set(value);
}

void MRLSchemaInfo::resetModifiable() {
    m_data->modifiable.reset();
}

// -- MRLThing -----------------------------------------------------------------------------------------------

MRLThing_PrivateData::MRLThing_PrivateData(const MRLThing_PrivateData& other, MRLObjectRegistryI& registry)
    : name(detail::copyText(other.name, registry)) {}

MRLThing_PrivateData::~MRLThing_PrivateData() = default;

int MRLThing_PrivateData::operator!=(const MRLThing_PrivateData& other) const {
    return !(*this == other);
}

int MRLThing_PrivateData::operator==(const MRLThing_PrivateData& other) const {
    return detail::equalText(name, other.name);
}

MRLThing::MRLThing()
    : m_data(hblNew<MRLThing_PrivateData>(HBL_HERE)) {}

MRLThing::MRLThing(const MRLThing& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLThing_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLThing::~MRLThing() {
    delete m_data;
}

int MRLThing::isa(ObjectType type) const {
    return type == eMRLThing;
}

int MRLThing::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLThing&>(other).m_data);
}

int MRLThing::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLThing::operator==(other);
}

const char* MRLThing::getName() const {
    return m_data->name;
}

void MRLThing::setName(const char* value) {
    m_data->name = value;
}

// -- MRLGadget ----------------------------------------------------------------------------------------------

MRLGadget_PrivateData::MRLGadget_PrivateData(const MRLGadget_PrivateData& other, MRLObjectRegistryI& registry)
    : active(other.active)
    , count(other.count)
    , data(detail::copyBase64(other.data, registry))
    , for_(detail::copyText(other.for_, registry))
    , keeper(detail::copyObject(other.keeper, registry))
    , part(detail::copyObject(other.part, registry))
    , parts(other.parts, registry)
    , ratio(other.ratio)
    , shape(detail::copyObject(other.shape, registry))
    , sizes(other.sizes, registry)
    , tags(other.tags, registry)
    , total(other.total) {}

MRLGadget_PrivateData::~MRLGadget_PrivateData() = default;

int MRLGadget_PrivateData::operator!=(const MRLGadget_PrivateData& other) const {
    return !(*this == other);
}

int MRLGadget_PrivateData::operator==(const MRLGadget_PrivateData& other) const {
    return active == other.active &&
           count == other.count &&
           detail::equalBase64(data, other.data) &&
           detail::equalText(for_, other.for_) &&
           detail::equalObject(keeper, other.keeper) &&
           detail::equalObject(part, other.part) &&
           parts == other.parts &&
           ratio == other.ratio &&
           detail::equalObject(shape, other.shape) &&
           sizes == other.sizes &&
           tags == other.tags &&
           total == other.total;
}

MRLGadget::MRLGadget()
    : m_data(hblNew<MRLGadget_PrivateData>(HBL_HERE)) {}

MRLGadget::MRLGadget(const MRLGadget& other, MRLObjectRegistryI& registry)
    : MRLThing(other, registry)
    , m_data(hblNew<MRLGadget_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLGadget::~MRLGadget() {
    delete m_data;
}

int MRLGadget::isa(ObjectType type) const {
    return type == eMRLGadget ||
           type == eMRLThing;
}

int MRLGadget::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLGadget&>(other).m_data &&
                              MRLThing::operator==(other));
}

int MRLGadget::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLGadget::operator==(other);
}

int* MRLGadget::getActive() const {
    return m_data->active.get();
}

void MRLGadget::setActive(int value) {
    m_data->active.set(value);
}

void MRLGadget::resetActive() {
    m_data->active.reset();
}

int* MRLGadget::getCount() const {
    return m_data->count.get();
}

void MRLGadget::setCount(int value) {
    m_data->count.set(value);
}

void MRLGadget::resetCount() {
    m_data->count.reset();
}

MRLBase64Binary* MRLGadget::getData() const {
    return m_data->data;
}

MRLBase64Binary* MRLGadget::getData(MRLObjectRegistryI* registry) {
    return detail::lazyBase64(m_data->data, registry);
}

void MRLGadget::setData(MRLBase64Binary* value) {
    m_data->data = value;
}

const char* MRLGadget::getFor() const {
    return m_data->for_;
}

void MRLGadget::setFor(const char* value) {
    m_data->for_ = value;
}

MRLThing* MRLGadget::getKeeper() const {
    return m_data->keeper;
}

MRLThing* MRLGadget::getKeeper(MRLObjectRegistryI* registry) {
    return detail::lazyAbstract(m_data->keeper, registry);
}

void MRLGadget::setKeeper(MRLThing* value) {
    m_data->keeper = value;
}

MRLPart* MRLGadget::getPart() const {
    return m_data->part;
}

MRLPart* MRLGadget::getPart(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->part, registry);
}

void MRLGadget::setPart(MRLPart* value) {
    m_data->part = value;
}

MRLPartArray& MRLGadget::getParts() const {
    return m_data->parts;
}

float* MRLGadget::getRatio() const {
    return m_data->ratio.get();
}

void MRLGadget::setRatio(float value) {
    m_data->ratio.set(value);
}

void MRLGadget::resetRatio() {
    m_data->ratio.reset();
}

MRLShapeEnum* MRLGadget::getShape() const {
    return m_data->shape;
}

MRLShapeEnum* MRLGadget::getShape(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->shape, registry);
}

void MRLGadget::setShape(MRLShapeEnum* value) {
    m_data->shape = value;
}

MRLIntArray& MRLGadget::getSizes() const {
    return m_data->sizes;
}

MRLStringArray& MRLGadget::getTags() const {
    return m_data->tags;
}

int* MRLGadget::getTotal() const {
    return m_data->total.get();
}

void MRLGadget::setTotal(int value) {
    m_data->total.set(value);
}

void MRLGadget::resetTotal() {
    m_data->total.reset();
}

// -- MRLBareGadget ------------------------------------------------------------------------------------------

MRLBareGadget::MRLBareGadget() = default;

MRLBareGadget::MRLBareGadget(const MRLBareGadget& other, MRLObjectRegistryI& registry)
    : MRLGadget(other, registry) {}

MRLBareGadget::~MRLBareGadget() = default;

int MRLBareGadget::isa(ObjectType type) const {
    return type == eMRLBareGadget ||
           type == eMRLGadget ||
           type == eMRLThing;
}

int MRLBareGadget::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              MRLGadget::operator==(other));
}

int MRLBareGadget::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLBareGadget::operator==(other);
}

// -- MRLPart ------------------------------------------------------------------------------------------------

MRLPart_PrivateData::MRLPart_PrivateData(const MRLPart_PrivateData& other, MRLObjectRegistryI& /*registry*/)
    : height(other.height)
    , width(other.width) {}

MRLPart_PrivateData::~MRLPart_PrivateData() = default;

int MRLPart_PrivateData::operator!=(const MRLPart_PrivateData& other) const {
    return !(*this == other);
}

int MRLPart_PrivateData::operator==(const MRLPart_PrivateData& other) const {
    return height == other.height &&
           width == other.width;
}

MRLPart::MRLPart()
    : m_data(hblNew<MRLPart_PrivateData>(HBL_HERE)) {}

MRLPart::MRLPart(const MRLPart& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLPart_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLPart::~MRLPart() {
    delete m_data;
}

int MRLPart::isa(ObjectType type) const {
    return type == eMRLPart;
}

int MRLPart::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLPart&>(other).m_data);
}

int MRLPart::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLPart::operator==(other);
}

int* MRLPart::getHeight() const {
    return m_data->height.get();
}

void MRLPart::setHeight(int value) {
    m_data->height.set(value);
}

void MRLPart::resetHeight() {
    m_data->height.reset();
}

int* MRLPart::getWidth() const {
    return m_data->width.get();
}

void MRLPart::setWidth(int value) {
    m_data->width.set(value);
}

void MRLPart::resetWidth() {
    m_data->width.reset();
}

// -- MRLLabel -----------------------------------------------------------------------------------------------

MRLLabel_PrivateData::MRLLabel_PrivateData(const MRLLabel_PrivateData& other, MRLObjectRegistryI& registry)
    : value(detail::copyText(other.value, registry)) {}

MRLLabel_PrivateData::~MRLLabel_PrivateData() = default;

int MRLLabel_PrivateData::operator!=(const MRLLabel_PrivateData& other) const {
    return !(*this == other);
}

int MRLLabel_PrivateData::operator==(const MRLLabel_PrivateData& other) const {
    return detail::equalText(value, other.value);
}

MRLLabel::MRLLabel()
    : m_data(hblNew<MRLLabel_PrivateData>(HBL_HERE)) {}

MRLLabel::MRLLabel(const MRLLabel& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLLabel_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLLabel::~MRLLabel() {
    delete m_data;
}

int MRLLabel::isa(ObjectType type) const {
    return type == eMRLLabel;
}

int MRLLabel::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLLabel&>(other).m_data);
}

int MRLLabel::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLLabel::operator==(other);
}

const char* MRLLabel::getValue() const {
    return m_data->value;
}

void MRLLabel::setValue(const char* value) {
    m_data->value = value;
}

// -- MRLBox -------------------------------------------------------------------------------------------------

MRLBox_PrivateData::MRLBox_PrivateData(const MRLBox_PrivateData& other, MRLObjectRegistryI& registry)
    : things(other.things, registry) {}

MRLBox_PrivateData::~MRLBox_PrivateData() = default;

int MRLBox_PrivateData::operator!=(const MRLBox_PrivateData& other) const {
    return !(*this == other);
}

int MRLBox_PrivateData::operator==(const MRLBox_PrivateData& other) const {
    return things == other.things;
}

MRLBox::MRLBox()
    : m_data(hblNew<MRLBox_PrivateData>(HBL_HERE)) {}

MRLBox::MRLBox(const MRLBox& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLBox_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLBox::~MRLBox() {
    delete m_data;
}

int MRLBox::isa(ObjectType type) const {
    return type == eMRLBox;
}

int MRLBox::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLBox&>(other).m_data);
}

int MRLBox::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLBox::operator==(other);
}

MRLThingArray& MRLBox::getThings() const {
    return m_data->things;
}

// -- MRLMarker ----------------------------------------------------------------------------------------------

MRLMarker::MRLMarker() = default;

MRLMarker::MRLMarker(const MRLMarker& /*other*/, MRLObjectRegistryI& /*registry*/) {}

MRLMarker::~MRLMarker() = default;

int MRLMarker::isa(ObjectType type) const {
    return type == eMRLMarker;
}

int MRLMarker::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType));
}

int MRLMarker::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLMarker::operator==(other);
}

// -- MRLSwap ------------------------------------------------------------------------------------------------

MRLSwap_PrivateData::MRLSwap_PrivateData(const MRLSwap_PrivateData& other, MRLObjectRegistryI& registry)
    : second(detail::copyText(other.second, registry))
    , first(detail::copyText(other.first, registry)) {}

MRLSwap_PrivateData::~MRLSwap_PrivateData() = default;

int MRLSwap_PrivateData::operator!=(const MRLSwap_PrivateData& other) const {
    return !(*this == other);
}

int MRLSwap_PrivateData::operator==(const MRLSwap_PrivateData& other) const {
    return detail::equalText(second, other.second) &&
           detail::equalText(first, other.first);
}

MRLSwap::MRLSwap()
    : m_data(hblNew<MRLSwap_PrivateData>(HBL_HERE)) {}

MRLSwap::MRLSwap(const MRLSwap& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLSwap_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLSwap::~MRLSwap() {
    delete m_data;
}

int MRLSwap::isa(ObjectType type) const {
    return type == eMRLSwap;
}

int MRLSwap::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLSwap&>(other).m_data);
}

int MRLSwap::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLSwap::operator==(other);
}

const char* MRLSwap::getSecond() const {
    return m_data->second;
}

void MRLSwap::setSecond(const char* value) {
    m_data->second = value;
}

const char* MRLSwap::getFirst() const {
    return m_data->first;
}

void MRLSwap::setFirst(const char* value) {
    m_data->first = value;
}
