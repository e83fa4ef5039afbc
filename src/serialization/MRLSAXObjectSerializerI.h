#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class MRLSAXEventSinkI;

/// Tells of a schema object as a stream of events. One call at a time.
class MRL_EXPORT MRLSAXObjectSerializerI {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    MRLSAXObjectSerializerI() = default;
    MRLSAXObjectSerializerI(const MRLSAXObjectSerializerI&) = delete;
    MRLSAXObjectSerializerI& operator=(const MRLSAXObjectSerializerI&) = delete;
    virtual ~MRLSAXObjectSerializerI();

    /// Tells of `object` as the element "bus:`name`", which declares the namespaces. Null and an array
    /// without items give no event. An object that is reached twice is told twice, and a cycle does
    /// not end.
    /// @param saxParser takes the events; borrowed.
    /// @throws HBLAssertError for a null name or sink, a null array, and a type that has no form;
    ///         whatever the sink throws, with the events so far delivered.
    virtual void serialize(void* object, ObjectType objectType, const char* name,
                           MRLSAXEventSinkI* saxParser) = 0;
};
