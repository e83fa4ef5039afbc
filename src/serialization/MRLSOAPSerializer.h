#pragma once

#include "serialization/MRLObjectSerializerI.h"

#include <vector>

class ObjectContext;

/// The writer of envelopes and elements: SOAP 1.1 in the encoded style, byte for byte. Nothing is
/// built in memory but the names of the objects on the way down; the depth of the objects costs no
/// stack. One call at a time; instances share nothing.
class MRL_EXPORT MRLSOAPSerializer : public MRLObjectSerializerI {
public:
    MRLSOAPSerializer() = default;
    ~MRLSOAPSerializer() override;

    void serialize(void* object, ObjectType objectType, const char* qName, PLQOutputStream& out) override;
    void setWriteNamespaces(int writeNamespaces) override { m_writeNamespaces = writeNamespaces; }

    /// Whether absent members are written as nil elements; 0 at first.
    void setWriteNulls(int writeNulls) { m_writeNulls = writeNulls; }

    /// Writes a whole envelope.
    /// @param operationName the element around the parameters; null for none.
    /// @param operationNamespace its namespace.
    /// @param altOut receives the same bytes as `out`; null for none.
    /// @throws HBLAssertError when `altOut` is `out`, and for an operation without a namespace.
    void serializeEnvelope(const std::vector<ObjectContext*>& headers,
                           const std::vector<ObjectContext*>& params, const char* operationName,
                           const char* operationNamespace, PLQOutputStream& out, PLQOutputStream* altOut,
                           int writeProlog);

    /// Writes one element and all below it, `indentLevel` + 1 tabs deep.
    /// @param forceEmpty write a null object as a nil element instead of leaving it out.
    /// @param closeTag write the closing tag; without it the caller goes on inside the element.
    void writeElement(void* object, ObjectType objectType, const char* qName, int indentLevel,
                      int writeNamespaces, int forceEmpty, int closeTag, PLQOutputStream& out);

private:
    void writeEnvelope(const std::vector<ObjectContext*>& headers, const std::vector<ObjectContext*>& params,
                       const char* operationName, const char* operationNamespace, PLQOutputStream& out,
                       int writeProlog);

    int m_writeNulls = 0;
    int m_writeNamespaces = 1;
};
