#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class PLQOutputStream;

/// Writes a schema object as one XML element. One call at a time.
class MRL_EXPORT MRLObjectSerializerI {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    MRLObjectSerializerI() = default;
    MRLObjectSerializerI(const MRLObjectSerializerI&) = delete;
    MRLObjectSerializerI& operator=(const MRLObjectSerializerI&) = delete;
    virtual ~MRLObjectSerializerI();

    /// Writes `object` as the element `qName`, without indentation of its own; null becomes a nil
    /// element. An object that is reached twice is written twice, and a cycle does not end.
    /// @throws HBLAssertError for a null name and for a type that has no form on the wire;
    ///         whatever `out` throws, with what was written so far left there.
    virtual void serialize(void* object, ObjectType objectType, const char* qName, PLQOutputStream& out) = 0;

    /// Whether serialize() declares the namespaces on the element; 1 at first.
    virtual void setWriteNamespaces(int writeNamespaces) = 0;
};
