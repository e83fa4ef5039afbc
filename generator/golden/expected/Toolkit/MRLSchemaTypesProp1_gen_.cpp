// Generated from the catalogue: construction, copies, comparison and typed access.
#include "Toolkit/MRLSchemaTypesProp1_gen_.h"

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

// -- MRLBaseProp --------------------------------------------------------------------------------------------

MRLBaseProp_PrivateData::MRLBaseProp_PrivateData(const MRLBaseProp_PrivateData& other,
                                                 MRLObjectRegistryI& registry)
    : schemaInfo(detail::copyObject(other.schemaInfo, registry)) {}

MRLBaseProp_PrivateData::~MRLBaseProp_PrivateData() = default;

int MRLBaseProp_PrivateData::operator!=(const MRLBaseProp_PrivateData& other) const {
    return !(*this == other);
}

int MRLBaseProp_PrivateData::operator==(const MRLBaseProp_PrivateData& other) const {
    return detail::equalObject(schemaInfo, other.schemaInfo);
}

MRLBaseProp::MRLBaseProp()
    : m_data(hblNew<MRLBaseProp_PrivateData>(HBL_HERE)) {}

MRLBaseProp::MRLBaseProp(const MRLBaseProp& other, MRLObjectRegistryI& registry)
    : m_data(hblNew<MRLBaseProp_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLBaseProp::~MRLBaseProp() {
    delete m_data;
}

int MRLBaseProp::isa(ObjectType type) const {
    return type == eMRLBaseProp;
}

int MRLBaseProp::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLBaseProp&>(other).m_data);
}

int MRLBaseProp::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLBaseProp::operator==(other);
}

MRLSchemaInfo* MRLBaseProp::getSchemaInfo() const {
    return m_data->schemaInfo;
}

MRLSchemaInfo* MRLBaseProp::getSchemaInfo(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->schemaInfo, registry);
}

void MRLBaseProp::setSchemaInfo(MRLSchemaInfo* value) {
    m_data->schemaInfo = value;
}

// -- MRLRefProp ---------------------------------------------------------------------------------------------

MRLRefProp_PrivateData::MRLRefProp_PrivateData(const MRLRefProp_PrivateData& other,
                                               MRLObjectRegistryI& registry)
    : properties(other.properties, registry)
    , refPropName(detail::copyObject(other.refPropName, registry)) {}

MRLRefProp_PrivateData::~MRLRefProp_PrivateData() = default;

int MRLRefProp_PrivateData::operator!=(const MRLRefProp_PrivateData& other) const {
    return !(*this == other);
}

int MRLRefProp_PrivateData::operator==(const MRLRefProp_PrivateData& other) const {
    return properties == other.properties &&
           detail::equalObject(refPropName, other.refPropName);
}

MRLRefProp::MRLRefProp()
    : m_data(hblNew<MRLRefProp_PrivateData>(HBL_HERE)) {}

MRLRefProp::MRLRefProp(const MRLRefProp& other, MRLObjectRegistryI& registry)
    : MRLBaseProp(other, registry)
    , m_data(hblNew<MRLRefProp_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLRefProp::~MRLRefProp() {
    delete m_data;
}

int MRLRefProp::isa(ObjectType type) const {
    return type == eMRLRefProp ||
           type == eMRLBaseProp;
}

int MRLRefProp::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLRefProp&>(other).m_data &&
                              MRLBaseProp::operator==(other));
}

int MRLRefProp::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLRefProp::operator==(other);
}

MRLShapeEnumArray& MRLRefProp::getProperties() const {
    return m_data->properties;
}

MRLShapeEnum* MRLRefProp::getRefPropName() const {
    return m_data->refPropName;
}

MRLShapeEnum* MRLRefProp::getRefPropName(MRLObjectRegistryI* registry) {
    return detail::lazyObject(m_data->refPropName, registry);
}

void MRLRefProp::setRefPropName(MRLShapeEnum* value) {
    m_data->refPropName = value;
}

// -- MRLBooleanProp -----------------------------------------------------------------------------------------

MRLBooleanProp_PrivateData::MRLBooleanProp_PrivateData(const MRLBooleanProp_PrivateData& other,
                                                       MRLObjectRegistryI& /*registry*/)
    : value(other.value) {}

MRLBooleanProp_PrivateData::~MRLBooleanProp_PrivateData() = default;

int MRLBooleanProp_PrivateData::operator!=(const MRLBooleanProp_PrivateData& other) const {
    return !(*this == other);
}

int MRLBooleanProp_PrivateData::operator==(const MRLBooleanProp_PrivateData& other) const {
    return value == other.value;
}

MRLBooleanProp::MRLBooleanProp()
    : m_data(hblNew<MRLBooleanProp_PrivateData>(HBL_HERE)) {}

MRLBooleanProp::MRLBooleanProp(const MRLBooleanProp& other, MRLObjectRegistryI& registry)
    : MRLBaseProp(other, registry)
    , m_data(hblNew<MRLBooleanProp_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLBooleanProp::~MRLBooleanProp() {
    delete m_data;
}

int MRLBooleanProp::isa(ObjectType type) const {
    return type == eMRLBooleanProp ||
           type == eMRLBaseProp;
}

int MRLBooleanProp::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLBooleanProp&>(other).m_data &&
                              MRLBaseProp::operator==(other));
}

int MRLBooleanProp::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLBooleanProp::operator==(other);
}

int* MRLBooleanProp::getValue() const {
    return m_data->value.get();
}

void MRLBooleanProp::setValue(int value) {
    m_data->value.set(value);
}

void MRLBooleanProp::resetValue() {
    m_data->value.reset();
}

// -- MRLDecimalProp -----------------------------------------------------------------------------------------

MRLDecimalProp_PrivateData::MRLDecimalProp_PrivateData(const MRLDecimalProp_PrivateData& other,
                                                       MRLObjectRegistryI& /*registry*/)
    : value(other.value) {}

MRLDecimalProp_PrivateData::~MRLDecimalProp_PrivateData() = default;

int MRLDecimalProp_PrivateData::operator!=(const MRLDecimalProp_PrivateData& other) const {
    return !(*this == other);
}

int MRLDecimalProp_PrivateData::operator==(const MRLDecimalProp_PrivateData& other) const {
    return value == other.value;
}

MRLDecimalProp::MRLDecimalProp()
    : m_data(hblNew<MRLDecimalProp_PrivateData>(HBL_HERE)) {}

MRLDecimalProp::MRLDecimalProp(const MRLDecimalProp& other, MRLObjectRegistryI& registry)
    : MRLBaseProp(other, registry)
    , m_data(hblNew<MRLDecimalProp_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLDecimalProp::~MRLDecimalProp() {
    delete m_data;
}

int MRLDecimalProp::isa(ObjectType type) const {
    return type == eMRLDecimalProp ||
           type == eMRLBaseProp;
}

int MRLDecimalProp::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLDecimalProp&>(other).m_data &&
                              MRLBaseProp::operator==(other));
}

int MRLDecimalProp::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLDecimalProp::operator==(other);
}

float* MRLDecimalProp::getValue() const {
    return m_data->value.get();
}

void MRLDecimalProp::setValue(float value) {
    m_data->value.set(value);
}

void MRLDecimalProp::resetValue() {
    m_data->value.reset();
}

// -- MRLPartArrayProp ---------------------------------------------------------------------------------------

MRLPartArrayProp_PrivateData::MRLPartArrayProp_PrivateData(const MRLPartArrayProp_PrivateData& other,
                                                           MRLObjectRegistryI& registry)
    : value(other.value, registry) {}

MRLPartArrayProp_PrivateData::~MRLPartArrayProp_PrivateData() = default;

int MRLPartArrayProp_PrivateData::operator!=(const MRLPartArrayProp_PrivateData& other) const {
    return !(*this == other);
}

int MRLPartArrayProp_PrivateData::operator==(const MRLPartArrayProp_PrivateData& other) const {
    return value == other.value;
}

MRLPartArrayProp::MRLPartArrayProp()
    : m_data(hblNew<MRLPartArrayProp_PrivateData>(HBL_HERE)) {}

MRLPartArrayProp::MRLPartArrayProp(const MRLPartArrayProp& other, MRLObjectRegistryI& registry)
    : MRLBaseProp(other, registry)
    , m_data(hblNew<MRLPartArrayProp_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLPartArrayProp::~MRLPartArrayProp() {
    delete m_data;
}

int MRLPartArrayProp::isa(ObjectType type) const {
    return type == eMRLPartArrayProp ||
           type == eMRLBaseProp;
}

int MRLPartArrayProp::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLPartArrayProp&>(other).m_data &&
                              MRLBaseProp::operator==(other));
}

int MRLPartArrayProp::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLPartArrayProp::operator==(other);
}

MRLPartArray& MRLPartArrayProp::getValue() const {
    return m_data->value;
}

// -- MRLStringProp ------------------------------------------------------------------------------------------

MRLStringProp_PrivateData::MRLStringProp_PrivateData(const MRLStringProp_PrivateData& other,
                                                     MRLObjectRegistryI& registry)
    : value(detail::copyText(other.value, registry)) {}

MRLStringProp_PrivateData::~MRLStringProp_PrivateData() = default;

int MRLStringProp_PrivateData::operator!=(const MRLStringProp_PrivateData& other) const {
    return !(*this == other);
}

int MRLStringProp_PrivateData::operator==(const MRLStringProp_PrivateData& other) const {
    return detail::equalText(value, other.value);
}

MRLStringProp::MRLStringProp()
    : m_data(hblNew<MRLStringProp_PrivateData>(HBL_HERE)) {}

MRLStringProp::MRLStringProp(const MRLStringProp& other, MRLObjectRegistryI& registry)
    : MRLBaseProp(other, registry)
    , m_data(hblNew<MRLStringProp_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLStringProp::~MRLStringProp() {
    delete m_data;
}

int MRLStringProp::isa(ObjectType type) const {
    return type == eMRLStringProp ||
           type == eMRLBaseProp;
}

int MRLStringProp::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLStringProp&>(other).m_data &&
                              MRLBaseProp::operator==(other));
}

int MRLStringProp::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLStringProp::operator==(other);
}

const char* MRLStringProp::getValue() const {
    return m_data->value;
}

void MRLStringProp::setValue(const char* value) {
    m_data->value = value;
}

// -- MRLThingProp -------------------------------------------------------------------------------------------

MRLThingProp_PrivateData::MRLThingProp_PrivateData(const MRLThingProp_PrivateData& other,
                                                   MRLObjectRegistryI& registry)
    : value(detail::copyObject(other.value, registry)) {}

MRLThingProp_PrivateData::~MRLThingProp_PrivateData() = default;

int MRLThingProp_PrivateData::operator!=(const MRLThingProp_PrivateData& other) const {
    return !(*this == other);
}

int MRLThingProp_PrivateData::operator==(const MRLThingProp_PrivateData& other) const {
    return detail::equalObject(value, other.value);
}

MRLThingProp::MRLThingProp()
    : m_data(hblNew<MRLThingProp_PrivateData>(HBL_HERE)) {}

MRLThingProp::MRLThingProp(const MRLThingProp& other, MRLObjectRegistryI& registry)
    : MRLBaseProp(other, registry)
    , m_data(hblNew<MRLThingProp_PrivateData>(HBL_HERE, *other.m_data, registry)) {}

MRLThingProp::~MRLThingProp() {
    delete m_data;
}

int MRLThingProp::isa(ObjectType type) const {
    return type == eMRLThingProp ||
           type == eMRLBaseProp;
}

int MRLThingProp::operator==(const MRLSchemaTypeI& other) const {
    return this == &other || (other.isa(s_objectType) &&
                              *m_data == *static_cast<const MRLThingProp&>(other).m_data &&
                              MRLBaseProp::operator==(other));
}

int MRLThingProp::operator!=(const MRLSchemaTypeI& other) const {
    return !MRLThingProp::operator==(other);
}

MRLThing* MRLThingProp::getValue() const {
    return m_data->value;
}

MRLThing* MRLThingProp::getValue(MRLObjectRegistryI* registry) {
    return detail::lazyAbstract(m_data->value, registry);
}

void MRLThingProp::setValue(MRLThing* value) {
    m_data->value = value;
}
