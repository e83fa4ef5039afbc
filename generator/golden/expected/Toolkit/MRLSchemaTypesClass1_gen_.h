// Generated from the catalogue: the values of the classes in MRLSchemaTypesClass1_gen_.cpp.
// Internal: only generated sources include it.
#pragma once

#include "Toolkit/MRLNullable.h"
#include "Toolkit/MRLIntArray.h"
#include "Toolkit/MRLPartArray.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLThingArray.h"

class MRLObjectRegistryI;
class MRLBase64Binary;
class MRLPart;
class MRLShapeEnum;

class MRLSchemaInfo_PrivateData {
public:
    MRLSchemaInfo_PrivateData() = default;
    MRLSchemaInfo_PrivateData(const MRLSchemaInfo_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLSchemaInfo_PrivateData();
    virtual int operator!=(const MRLSchemaInfo_PrivateData& other) const;
    virtual int operator==(const MRLSchemaInfo_PrivateData& other) const;

    mrl::detail::MRLNullable<int> modifiable;
};

class MRLThing_PrivateData {
public:
    MRLThing_PrivateData() = default;
    MRLThing_PrivateData(const MRLThing_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLThing_PrivateData();
    virtual int operator!=(const MRLThing_PrivateData& other) const;
    virtual int operator==(const MRLThing_PrivateData& other) const;

    const char* name = nullptr;
};

class MRLGadget_PrivateData {
public:
    MRLGadget_PrivateData() = default;
    MRLGadget_PrivateData(const MRLGadget_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLGadget_PrivateData();
    virtual int operator!=(const MRLGadget_PrivateData& other) const;
    virtual int operator==(const MRLGadget_PrivateData& other) const;

    mrl::detail::MRLNullable<int> active;
    mrl::detail::MRLNullable<int> count;
    MRLBase64Binary* data = nullptr;
    const char* for_ = nullptr;
    MRLThing* keeper = nullptr;
    MRLPart* part = nullptr;
    MRLPartArray parts;
    mrl::detail::MRLNullable<float> ratio;
    MRLShapeEnum* shape = nullptr;
    MRLIntArray sizes;
    MRLStringArray tags;
    mrl::detail::MRLNullable<int> total;
};

class MRLPart_PrivateData {
public:
    MRLPart_PrivateData() = default;
    MRLPart_PrivateData(const MRLPart_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLPart_PrivateData();
    virtual int operator!=(const MRLPart_PrivateData& other) const;
    virtual int operator==(const MRLPart_PrivateData& other) const;

    mrl::detail::MRLNullable<int> height;
    mrl::detail::MRLNullable<int> width;
};

class MRLLabel_PrivateData {
public:
    MRLLabel_PrivateData() = default;
    MRLLabel_PrivateData(const MRLLabel_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLLabel_PrivateData();
    virtual int operator!=(const MRLLabel_PrivateData& other) const;
    virtual int operator==(const MRLLabel_PrivateData& other) const;

    const char* value = nullptr;
};

class MRLBox_PrivateData {
public:
    MRLBox_PrivateData() = default;
    MRLBox_PrivateData(const MRLBox_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLBox_PrivateData();
    virtual int operator!=(const MRLBox_PrivateData& other) const;
    virtual int operator==(const MRLBox_PrivateData& other) const;

    MRLThingArray things;
};

class MRLSwap_PrivateData {
public:
    MRLSwap_PrivateData() = default;
    MRLSwap_PrivateData(const MRLSwap_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLSwap_PrivateData();
    virtual int operator!=(const MRLSwap_PrivateData& other) const;
    virtual int operator==(const MRLSwap_PrivateData& other) const;

    const char* second = nullptr;
    const char* first = nullptr;
};
