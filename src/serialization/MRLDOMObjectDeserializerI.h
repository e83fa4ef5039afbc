#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"
#include "HBLIDOM/HBLIDOM.h"

class MRLObjectRegistryI;

/// Makes the schema object of a DOM element. One call at a time.
class MRL_EXPORT MRLDOMObjectDeserializerI {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    MRLDOMObjectDeserializerI() = default;
    MRLDOMObjectDeserializerI(const MRLDOMObjectDeserializerI&) = delete;
    MRLDOMObjectDeserializerI& operator=(const MRLDOMObjectDeserializerI&) = delete;
    virtual ~MRLDOMObjectDeserializerI();

    /// Reads `domIn` as the reader of messages reads a parameter: by "xsi:type", checked against what
    /// is declared, elements that are not known passed over. The prefixes that types use have to be
    /// declared on the element or below it. Comments, CDATA sections and text directly in `domIn` count
    /// for nothing.
    /// @param registry owns all that is made, also when this throws.
    /// @param expectedType the type of an element that does not say its own; e_Unknown for none.
    /// @return the object; null for a nil element.
    /// @throws HBLAssertError for a null node and for an element that has no type or a simple one;
    ///         MRLException for content that does not fit.
    virtual MRLSchemaTypeI* deserialize(const HBLIDOM::Node& domIn, MRLObjectRegistryI& registry,
                                        ObjectType expectedType = MRLSchemaTypeI::e_Unknown) = 0;
};
