#include "Toolkit/MRLMessageFactory.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "count/Counting.h"
#include "count/Figures.h"
#include "data/CatalogueData.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLUtCrc32.h"

#include <set>
#include <string>

namespace mrl::tool {

namespace {

/// An array parameter is a pointer as an object is.
void countParameter(MRLSchemaTypeI::ObjectType declared, Figures& figures) {
    const std::string kind(valueKind(declared));
    figures.add((kind == "array" ? "object" : kind) + "Parameters", 1);
    if (kind == "object" && MRLSchemaTypesFactory::isBase64(declared) == 0)
        figures.add("abstractGetters", isAbstract(declared) ? 1 : 0);
}

} // namespace

void countMessages(Figures& figures) {
    MRLMessageFactory& factory = MRLMessageFactory::getInstance();
    std::set<std::string> made;
    for (const MessageRow& row : messages()) {
        const auto type = static_cast<MRLMessageI::MessageType>(HBLUtCrc32::crc32(row.name, 0));
        const HBLSmartPointer<MRLMessageI> message(factory.create(type));
        if (!message || std::string_view(message->getGeneratedMessageName()) != row.name)
            continue;
        made.insert(row.name);
        figures.add("messages", 1);
        const MRLMessageFactory::MRLParamDescriptor* parameter = factory.getParameterTypes(type);
        if (parameter == nullptr)
            continue;
        figures.add("parameterLists", 1);
        for (; parameter->paramName != nullptr; ++parameter)
            countParameter(parameter->paramType, figures);
    }
    for (const std::string& name : made)
        if (const std::size_t side = name.rfind("_Request"); side != std::string::npos)
            figures.add("messagePairs", made.count(name.substr(0, side) + "_Reply"));
}

} // namespace mrl::tool
