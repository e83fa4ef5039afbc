#include "serialization/MRLSOAPSerializer.h"

#include "Common/PLQEchoOutputStream.h"
#include "serialization/ObjectContext.h"
#include "serialization/detail/ElementWriter.h"
#include "serialization/detail/EnvelopeText.h"
#include "serialization/detail/GatheringOutputStream.h"

#include "HBLCore/HBLFailure.h"

using mrl::detail::ElementWriter;
using mrl::detail::GatheringOutputStream;
namespace text = mrl::detail::text;

namespace {

void writeContexts(ElementWriter& writer, const std::vector<ObjectContext*>& contexts,
                   const ElementWriter::Form& form) {
    for (const ObjectContext* objectContext : contexts) {
        HBL_ASSERT(objectContext);
        writer.write(objectContext->object, objectContext->objectType, objectContext->name.c_str(), form);
    }
}

} // namespace

MRLObjectSerializerI::~MRLObjectSerializerI() = default;
MRLSOAPSerializer::~MRLSOAPSerializer() = default;

void MRLSOAPSerializer::serialize(void* object, ObjectType objectType, const char* qName,
                                  PLQOutputStream& out) {
    writeElement(object, objectType, qName, -1, m_writeNamespaces, 1, 1, out);
}

void MRLSOAPSerializer::serializeEnvelope(const std::vector<ObjectContext*>& headers,
                                          const std::vector<ObjectContext*>& params,
                                          const char* operationName, const char* operationNamespace,
                                          PLQOutputStream& out, PLQOutputStream* altOut, int writeProlog) {
    if (altOut == nullptr) {
        writeEnvelope(headers, params, operationName, operationNamespace, out, writeProlog);
        return;
    }
    HBL_ASSERT(altOut != &out);
    PLQEchoOutputStream tee;
    tee.wrap(out, *altOut);
    writeEnvelope(headers, params, operationName, operationNamespace, tee, writeProlog);
}

void MRLSOAPSerializer::writeEnvelope(const std::vector<ObjectContext*>& headers,
                                      const std::vector<ObjectContext*>& params, const char* operationName,
                                      const char* operationNamespace, PLQOutputStream& out, int writeProlog) {
    GatheringOutputStream gathered(out);
    ElementWriter writer(gathered, m_writeNulls != 0);
    if (writeProlog != 0) {
        gathered.put(text::prolog);
        gathered.put('\n');
    }
    gathered.put(text::envelopeOpen);
    gathered.put("\n\t");
    gathered.put(text::headerOpen);
    gathered.put('\n');
    writeContexts(writer, headers, {.indentLevel = 1});
    gathered.put('\t');
    gathered.put(text::headerClose);
    gathered.put("\n\t");
    gathered.put(text::bodyOpen);
    gathered.put("\n\t\t");
    if (operationName != nullptr) {
        HBL_ASSERT_NAMED(operationNamespace, "An operation namespace must be given.");
        gathered.put("<rns1:");
        gathered.put(std::string_view(operationName));
        gathered.put(" xmlns:rns1=\"");
        gathered.put(std::string_view(operationNamespace));
        gathered.put("\">\n");
    }
    writeContexts(writer, params, {.indentLevel = 2, .forceEmpty = true});
    if (operationName != nullptr) {
        gathered.put("\t\t</rns1:");
        gathered.put(std::string_view(operationName));
        gathered.put('>');
    }
    gathered.put("\n\t");
    gathered.put(text::bodyClose);
    gathered.put('\n');
    gathered.put(text::envelopeClose);
    gathered.put('\n');
    gathered.finish();
}

void MRLSOAPSerializer::writeElement(void* object, ObjectType objectType, const char* qName, int indentLevel,
                                     int writeNamespaces, int forceEmpty, int closeTag,
                                     PLQOutputStream& out) {
    GatheringOutputStream gathered(out);
    ElementWriter writer(gathered, m_writeNulls != 0);
    writer.write(object, objectType, qName,
                 {.indentLevel = indentLevel,
                  .writeNamespaces = writeNamespaces != 0,
                  .forceEmpty = forceEmpty != 0,
                  .closeTag = closeTag != 0});
    gathered.finish();
}
