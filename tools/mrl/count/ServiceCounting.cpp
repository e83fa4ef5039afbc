#include "Toolkit/MRLPortTypeBinding.h"
#include "count/Counting.h"
#include "count/Figures.h"
#include "data/CatalogueData.h"
#include "data/EmptyMessage.h"
#include "data/LibraryAccess.h"

#include "HBLCore/HBLAssertError.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLUtCrc32.h"

namespace mrl::tool {

namespace {

using MessageType = MRLMessageI::MessageType;

/// Whether the port type has an entry for that input and output with this name and SOAP action.
bool hasEntry(const MRLPortTypeI& service, MessageType input, MessageType output, std::string_view name,
              std::string_view soapAction) {
    EmptyMessage request(input);
    EmptyMessage reply(output);
    try {
        const HBLSmartPointer<MRLPortTypeBinding> binding(service.createPortTypeBinding(request, reply));
        return binding->getOperationName() == name && binding->getSOAPAction() == soapAction;
    } catch (const HBLAssertError&) {
        return false;
    }
}

std::size_t entriesOf(const ServiceRow& row, const MRLPortTypeI& service) {
    const auto type = [](const char* message) {
        return static_cast<MessageType>(HBLUtCrc32::crc32(message, 0));
    };
    std::size_t entries = 0;
    for (const OperationRow& operation : row.operations)
        if (hasEntry(service, type(operation.request), type(operation.reply), operation.name,
                     operation.soapAction))
            ++entries;
    // The last entry of each port type has no name, and stands for messages of types 1 and 2.
    if (hasEntry(service, static_cast<MessageType>(1), static_cast<MessageType>(2), "",
                 service.getBoundNamespace()))
        ++entries;
    return entries;
}

} // namespace

void countServices(Figures& figures) {
    for (const ServiceRow& row : services()) {
        const MRLPortTypeI* service = portType(row.name);
        if (service == nullptr || std::string_view(service->getName()) != row.name)
            continue;
        const std::size_t entries = entriesOf(row, *service);
        figures.add("portTypes", 1);
        figures.add("operationEntries", entries);
        if (std::string_view(row.name) == "VantorLumenaPortType")
            figures.add("lumenaEntries", entries);
    }
}

} // namespace mrl::tool
