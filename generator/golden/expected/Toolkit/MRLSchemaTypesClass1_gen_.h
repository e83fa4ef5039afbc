// Generated from the catalogue: the values of the classes in MRLSchemaTypesClass1_gen_.cpp.
// Internal: only generated sources include it.
#pragma once

#include "Toolkit/MRLNullable.h"
#include "Toolkit/MRLFaultDetailMessageArray.h"
#include "Toolkit/MRLIntArray.h"
#include "Toolkit/MRLPartArray.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLThingArray.h"

#include "HBLCore/HBLArena.h"

class MRLObjectRegistryI;
class MRLBase64Binary;
class MRLPart;
class MRLPromptInfo;
class MRLShapeEnum;
class MRLZOR;

class MRLTavelHeader_PrivateData : public HBLArenaPiece {
public:
    MRLTavelHeader_PrivateData() = default;
    MRLTavelHeader_PrivateData(const MRLTavelHeader_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLTavelHeader_PrivateData();
    virtual int operator!=(const MRLTavelHeader_PrivateData& other) const;
    virtual int operator==(const MRLTavelHeader_PrivateData& other) const;

    MRLZOR* ZOR = nullptr;
};

class MRLZOR_PrivateData : public HBLArenaPiece {
public:
    MRLZOR_PrivateData() = default;
    MRLZOR_PrivateData(const MRLZOR_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLZOR_PrivateData();
    virtual int operator!=(const MRLZOR_PrivateData& other) const;
    virtual int operator==(const MRLZOR_PrivateData& other) const;

    MRLStringArray roles;
};

class MRLZORException_PrivateData : public HBLArenaPiece {
public:
    MRLZORException_PrivateData() = default;
    MRLZORException_PrivateData(const MRLZORException_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLZORException_PrivateData();
    virtual int operator!=(const MRLZORException_PrivateData& other) const;
    virtual int operator==(const MRLZORException_PrivateData& other) const;

    const char* errorCodeString = nullptr;
    MRLStringArray messages;
    MRLPromptInfo* promptInfo = nullptr;
};

class MRLPromptInfo_PrivateData : public HBLArenaPiece {
public:
    MRLPromptInfo_PrivateData() = default;
    MRLPromptInfo_PrivateData(const MRLPromptInfo_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLPromptInfo_PrivateData();
    virtual int operator!=(const MRLPromptInfo_PrivateData& other) const;
    virtual int operator==(const MRLPromptInfo_PrivateData& other) const;

    MRLStringArray captions;
};

class MRLFaultDetail_PrivateData : public HBLArenaPiece {
public:
    MRLFaultDetail_PrivateData() = default;
    MRLFaultDetail_PrivateData(const MRLFaultDetail_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLFaultDetail_PrivateData();
    virtual int operator!=(const MRLFaultDetail_PrivateData& other) const;
    virtual int operator==(const MRLFaultDetail_PrivateData& other) const;

    const char* errorCode = nullptr;
    MRLFaultDetailMessageArray message;
    const char* severity = nullptr;
};

class MRLFaultDetailMessage_PrivateData : public HBLArenaPiece {
public:
    MRLFaultDetailMessage_PrivateData() = default;
    MRLFaultDetailMessage_PrivateData(const MRLFaultDetailMessage_PrivateData& other,
                                      MRLObjectRegistryI& registry);
    virtual ~MRLFaultDetailMessage_PrivateData();
    virtual int operator!=(const MRLFaultDetailMessage_PrivateData& other) const;
    virtual int operator==(const MRLFaultDetailMessage_PrivateData& other) const;

    const char* message = nullptr;
    mrl::detail::MRLNullable<int> nestingLevel;
};

class MRLMessage_PrivateData : public HBLArenaPiece {
public:
    MRLMessage_PrivateData() = default;
    MRLMessage_PrivateData(const MRLMessage_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLMessage_PrivateData();
    virtual int operator!=(const MRLMessage_PrivateData& other) const;
    virtual int operator==(const MRLMessage_PrivateData& other) const;

    const char* messageString = nullptr;
    mrl::detail::MRLNullable<int> nestingLevel;
};

class MRLSchemaInfo_PrivateData : public HBLArenaPiece {
public:
    MRLSchemaInfo_PrivateData() = default;
    MRLSchemaInfo_PrivateData(const MRLSchemaInfo_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLSchemaInfo_PrivateData();
    virtual int operator!=(const MRLSchemaInfo_PrivateData& other) const;
    virtual int operator==(const MRLSchemaInfo_PrivateData& other) const;

    mrl::detail::MRLNullable<int> modifiable;
};

class MRLThing_PrivateData : public HBLArenaPiece {
public:
    MRLThing_PrivateData() = default;
    MRLThing_PrivateData(const MRLThing_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLThing_PrivateData();
    virtual int operator!=(const MRLThing_PrivateData& other) const;
    virtual int operator==(const MRLThing_PrivateData& other) const;

    const char* name = nullptr;
};

class MRLGadget_PrivateData : public HBLArenaPiece {
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

class MRLPart_PrivateData : public HBLArenaPiece {
public:
    MRLPart_PrivateData() = default;
    MRLPart_PrivateData(const MRLPart_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLPart_PrivateData();
    virtual int operator!=(const MRLPart_PrivateData& other) const;
    virtual int operator==(const MRLPart_PrivateData& other) const;

    mrl::detail::MRLNullable<int> height;
    mrl::detail::MRLNullable<int> width;
};

class MRLLabel_PrivateData : public HBLArenaPiece {
public:
    MRLLabel_PrivateData() = default;
    MRLLabel_PrivateData(const MRLLabel_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLLabel_PrivateData();
    virtual int operator!=(const MRLLabel_PrivateData& other) const;
    virtual int operator==(const MRLLabel_PrivateData& other) const;

    const char* value = nullptr;
};

class MRLBox_PrivateData : public HBLArenaPiece {
public:
    MRLBox_PrivateData() = default;
    MRLBox_PrivateData(const MRLBox_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLBox_PrivateData();
    virtual int operator!=(const MRLBox_PrivateData& other) const;
    virtual int operator==(const MRLBox_PrivateData& other) const;

    MRLThingArray things;
};

class MRLSwap_PrivateData : public HBLArenaPiece {
public:
    MRLSwap_PrivateData() = default;
    MRLSwap_PrivateData(const MRLSwap_PrivateData& other, MRLObjectRegistryI& registry);
    virtual ~MRLSwap_PrivateData();
    virtual int operator!=(const MRLSwap_PrivateData& other) const;
    virtual int operator==(const MRLSwap_PrivateData& other) const;

    const char* second = nullptr;
    const char* first = nullptr;
};
