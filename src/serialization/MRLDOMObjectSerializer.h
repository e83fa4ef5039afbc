#pragma once

#include "serialization/MRLDOMObjectSerializerI.h"

/// Instances share nothing.
class MRL_EXPORT MRLDOMObjectSerializer : public MRLDOMObjectSerializerI {
public:
    MRLDOMObjectSerializer() = default;
    ~MRLDOMObjectSerializer() override;

    HBLIDOM::Element serialize(void* object, ObjectType objectType, const char* name,
                               HBLIDOM::Document& ownerDoc) override;
};
