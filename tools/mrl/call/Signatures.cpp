#include "call/Signatures.h"

#include "Toolkit/MRLPortTypeI.h"
#include "data/LibraryAccess.h"
#include "lookup/Catalogue.h"

#include "HBLCore/HBLUtCrc32.h"

#include <algorithm>
#include <optional>

namespace mrl::tool {

namespace {

/// How many members of `json` are no parameters of the request.
std::size_t unknownParameters(const OperationRow& operation, const Json& json) {
    const auto parameters = findMessage(operation.request)->parameters;
    std::size_t unknown = 0;
    for (const auto& member : json.items())
        if (std::ranges::find(parameters, member.key(), &MemberRow::name) == parameters.end())
            ++unknown;
    return unknown;
}

} // namespace

BuiltRequest buildRequest(const ServiceRow& service, const OperationRow& operation, const Json& json) {
    const auto type = static_cast<MRLMessageI::MessageType>(HBLUtCrc32::crc32(operation.request, 0));
    const Binding binding(portType(service.name)->createPortTypeBinding(type));
    MRLMessageI& request = binding->getInputMessage();
    ValueBuilder builder(request.getObjectRegistry());
    builder.setParameters(request, json);
    return {binding, builder.contentIds()};
}

BuiltRequest buildRequest(const ServiceRow& service, const std::vector<const OperationRow*>& signatures,
                          const Json& json) {
    std::vector<const OperationRow*> byFit(signatures);
    std::ranges::stable_sort(byFit, {}, [&](const OperationRow* operation) {
        return std::pair(unknownParameters(*operation, json),
                         findMessage(operation->request)->parameters.size());
    });
    std::optional<JsonError> first;
    for (const OperationRow* operation : byFit) {
        try {
            return buildRequest(service, *operation, json);
        } catch (const JsonError& e) {
            if (!first)
                first = e;
        }
    }
    throw JsonError(*first);
}

} // namespace mrl::tool
