// Generated from the catalogue: the values of the classes in MRLSchemaTypesProp1_gen_.cpp.
// Internal: only generated sources include it.
#pragma once

#include "Toolkit/MRLNullable.h"
#include "Toolkit/MRLPartArray.h"
#include "Toolkit/MRLShapeEnumArray.h"

#include "HBLCore/HBLArena.h"

class MRLObjectRegistryI;
class MRLSchemaInfo;
class MRLShapeEnum;
class MRLThing;

class MRLBaseProp_PrivateData : public HBLArenaPiece {
public:
    MRLBaseProp_PrivateData() = default;
    MRLBaseProp_PrivateData(const MRLBaseProp_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLBaseProp_PrivateData();
    virtual int operator!=(const MRLBaseProp_PrivateData& other) const;
    virtual int operator==(const MRLBaseProp_PrivateData& other) const;

    MRLSchemaInfo* schemaInfo = nullptr;
};

class MRLRefProp_PrivateData : public HBLArenaPiece {
public:
    MRLRefProp_PrivateData() = default;
    MRLRefProp_PrivateData(const MRLRefProp_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLRefProp_PrivateData();
    virtual int operator!=(const MRLRefProp_PrivateData& other) const;
    virtual int operator==(const MRLRefProp_PrivateData& other) const;

    MRLShapeEnumArray properties;
    MRLShapeEnum* refPropName = nullptr;
};

class MRLBooleanProp_PrivateData : public HBLArenaPiece {
public:
    MRLBooleanProp_PrivateData() = default;
    MRLBooleanProp_PrivateData(const MRLBooleanProp_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLBooleanProp_PrivateData();
    virtual int operator!=(const MRLBooleanProp_PrivateData& other) const;
    virtual int operator==(const MRLBooleanProp_PrivateData& other) const;

    mrl::detail::MRLNullable<int> value;
};

class MRLDecimalProp_PrivateData : public HBLArenaPiece {
public:
    MRLDecimalProp_PrivateData() = default;
    MRLDecimalProp_PrivateData(const MRLDecimalProp_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLDecimalProp_PrivateData();
    virtual int operator!=(const MRLDecimalProp_PrivateData& other) const;
    virtual int operator==(const MRLDecimalProp_PrivateData& other) const;

    mrl::detail::MRLNullable<float> value;
};

class MRLPartArrayProp_PrivateData : public HBLArenaPiece {
public:
    MRLPartArrayProp_PrivateData() = default;
    MRLPartArrayProp_PrivateData(const MRLPartArrayProp_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLPartArrayProp_PrivateData();
    virtual int operator!=(const MRLPartArrayProp_PrivateData& other) const;
    virtual int operator==(const MRLPartArrayProp_PrivateData& other) const;

    MRLPartArray value;
};

class MRLStringProp_PrivateData : public HBLArenaPiece {
public:
    MRLStringProp_PrivateData() = default;
    MRLStringProp_PrivateData(const MRLStringProp_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLStringProp_PrivateData();
    virtual int operator!=(const MRLStringProp_PrivateData& other) const;
    virtual int operator==(const MRLStringProp_PrivateData& other) const;

    const char* value = nullptr;
};

class MRLThingProp_PrivateData : public HBLArenaPiece {
public:
    MRLThingProp_PrivateData() = default;
    MRLThingProp_PrivateData(const MRLThingProp_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLThingProp_PrivateData();
    virtual int operator!=(const MRLThingProp_PrivateData& other) const;
    virtual int operator==(const MRLThingProp_PrivateData& other) const;

    MRLThing* value = nullptr;
};
