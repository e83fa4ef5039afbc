#include "Toolkit/MRLMessageFactory.h"
#include "count/Counting.h"
#include "count/Figures.h"
#include "data/CatalogueData.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLUtCrc32.h"

#include <array>
#include <set>

namespace mrl::tool {

void countMessages(Figures& figures) {
    MRLMessageFactory& factory = MRLMessageFactory::getInstance();
    std::set<std::string> made;
    std::size_t lists = 0;
    std::array<std::size_t, 4> counts{};
    for (const MessageRow& row : messages()) {
        const auto type = static_cast<MRLMessageI::MessageType>(HBLUtCrc32::crc32(row.name, 0));
        const HBLSmartPointer<MRLMessageI> message(factory.create(type));
        if (!message || std::string_view(message->getGeneratedMessageName()) != row.name)
            continue;
        made.insert(row.name);
        const MRLMessageFactory::MRLParamDescriptor* parameter = factory.getParameterTypes(type);
        if (parameter == nullptr)
            continue;
        ++lists;
        for (; parameter->paramName != nullptr; ++parameter)
            ++counts[static_cast<std::size_t>(valueKind(parameter->paramType))];
    }
    std::size_t pairs = 0;
    for (const std::string& name : made)
        if (const std::size_t side = name.rfind("_Request"); side != std::string::npos)
            pairs += made.count(name.substr(0, side) + "_Reply");

    figures.add("messages", made.size());
    figures.add("messagePairs", pairs);
    figures.add("parameterLists", lists);
    figures.add("objectParameters", counts[static_cast<std::size_t>(ValueKind::object)] +
                                        counts[static_cast<std::size_t>(ValueKind::array)]);
    figures.add("stringParameters", counts[static_cast<std::size_t>(ValueKind::text)]);
    figures.add("nullableParameters", counts[static_cast<std::size_t>(ValueKind::nullable)]);
}

} // namespace mrl::tool
