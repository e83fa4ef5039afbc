#include "serialization/MRLSOAPMessageISerializer.h"

#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLTavelHeader.h"
#include "serialization/MRLSOAPSerializer.h"
#include "serialization/ObjectContext.h"

#include "HBLCore/HBLFailure.h"

#include <memory>
#include <string>
#include <vector>

namespace {

/// The contexts of one section, and the plain list of them that the writer takes.
class Section {
public:
    void add(void* object, MRLSchemaTypeI::ObjectType type, std::string name) {
        std::unique_ptr<ObjectContext> context(
            hblNew<ObjectContext>(HBL_HERE, object, type, std::move(name)));
        m_list.push_back(context.get());
        m_owned.push_back(std::move(context));
    }
    const std::vector<ObjectContext*>& list() const { return m_list; }

private:
    std::vector<std::unique_ptr<ObjectContext>> m_owned;
    std::vector<ObjectContext*> m_list;
};

} // namespace

MRLSOAPMessageISerializerI::~MRLSOAPMessageISerializerI() = default;
MRLSOAPMessageISerializer::~MRLSOAPMessageISerializer() = default;

void MRLSOAPMessageISerializer::serialize(MRLPortTypeBinding& binding, MRLMessageI& message,
                                          PLQOutputStream& out, PLQOutputStream* altOut, int writeProlog,
                                          int writeNulls) {
    hblRethrowing("MRLSOAPMessageISerializer::serialize()", [&] {
        const auto messageType = message.getMessageType();
        const bool isInput = messageType == binding.getInputMessage().getMessageType();
        const bool isOutput = messageType == binding.getOutputMessage().getMessageType();
        // The text is interface, and stands in one piece.
        // clang-format off
        HBL_ASSERT_NAMED(isInput || isOutput, "The message to be serialized must be either the input or output message contained in the given binding object.");
        // clang-format on

        Section headers;
        headers.add(message.getTavelHeader(nullptr), MRLSchemaTypeI::eMRLTavelHeader, "bus:tavelHeader");

        Section params;
        std::vector<const char*> names;
        message.getParameterNames(names);
        for (const char* name : names) {
            params.add(message.getParameter(name, 0), message.getParameterType(name),
                       std::string("bus:") + name);
        }

        std::string operation = binding.getOperationName();
        if (isOutput) {
            operation += "Response";
        }
        MRLSOAPSerializer serializer;
        serializer.setWriteNulls(writeNulls);
        serializer.serializeEnvelope(headers.list(), params.list(), operation.c_str(),
                                     binding.getOperationNamespace(), out, altOut, writeProlog);
    });
}
