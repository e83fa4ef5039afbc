#pragma once

#include "serialization/MRLSAXObjectSerializerI.h"

/// Instances share nothing.
class MRL_EXPORT MRLSAXObjectSerializer : public MRLSAXObjectSerializerI {
public:
    MRLSAXObjectSerializer() = default;
    ~MRLSAXObjectSerializer() override;

    void serialize(void* object, ObjectType objectType, const char* name,
                   MRLSAXEventSinkI* saxParser) override;

    /// Whether null objects are told of as empty elements with "xsi:nil"; 0 at first.
    void setWriteNulls(int writeNulls) { m_writeNulls = writeNulls; }

private:
    int m_writeNulls = 0;
};
