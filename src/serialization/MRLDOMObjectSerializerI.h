#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"
#include "HBLIDOM/HBLIDOM.h"

/// Builds the DOM element of a schema object. One call at a time.
class MRL_EXPORT MRLDOMObjectSerializerI {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    MRLDOMObjectSerializerI() = default;
    MRLDOMObjectSerializerI(const MRLDOMObjectSerializerI&) = delete;
    MRLDOMObjectSerializerI& operator=(const MRLDOMObjectSerializerI&) = delete;
    virtual ~MRLDOMObjectSerializerI();

    /// Builds `object` as the element "bus:`name`", which declares the namespaces. An object that is
    /// reached twice is built twice, and a cycle does not end.
    /// @param ownerDoc makes the nodes; nothing is appended to it.
    /// @return the element; null for a null object that is no array.
    /// @throws HBLAssertError for a null document or name and a type that has no form;
    ///         HBLIDOM_DOMException for what is no name.
    virtual HBLIDOM::Element serialize(void* object, ObjectType objectType, const char* name,
                                       HBLIDOM::Document& ownerDoc) = 0;
};
