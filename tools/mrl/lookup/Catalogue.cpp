#include "lookup/Catalogue.h"

#include <algorithm>

namespace mrl::tool {

namespace {

template <class Row>
const Row* find(std::span<const Row> rows, std::string_view name) {
    const auto nameOf = [](const Row& row) { return std::string_view(row.name); };
    const auto byName = std::ranges::lower_bound(rows, name, {}, nameOf);
    if (byName != rows.end() && nameOf(*byName) == name)
        return &*byName;
    if (!name.starts_with("MRL"))
        return nullptr;
    const auto byClass = std::ranges::find(rows, name, &Row::className);
    return byClass == rows.end() ? nullptr : &*byClass;
}

} // namespace

const TypeRow* findType(std::string_view name) {
    return find(types(), name);
}

const MessageRow* findMessage(std::string_view name) {
    return find(messages(), name);
}

const ServiceRow* findService(std::string_view name) {
    return find(services(), name);
}

std::vector<const TypeRow*> childrenOf(std::string_view parent) {
    std::vector<const TypeRow*> children;
    for (const TypeRow& type : types())
        if (parent == type.parent)
            children.push_back(&type);
    return children;
}

std::vector<const TypeRow*> lineageOf(const TypeRow& type) {
    std::vector<const TypeRow*> lineage;
    for (const TypeRow* level = &type; level != nullptr; level = findType(level->parent))
        lineage.push_back(level);
    std::ranges::reverse(lineage);
    return lineage;
}

std::vector<FoundOperation> findOperations(std::string_view name) {
    const std::size_t dot = name.find('.');
    const std::string_view serviceName = name.substr(0, dot == std::string_view::npos ? 0 : dot);
    const std::string_view operationName = name.substr(dot == std::string_view::npos ? 0 : dot + 1);
    std::vector<FoundOperation> found;
    for (const ServiceRow& service : services()) {
        if (!serviceName.empty() && &service != findService(serviceName))
            continue;
        for (const OperationRow& operation : service.operations)
            if (operationName == operation.name)
                found.push_back({&service, &operation});
    }
    return found;
}

std::vector<std::string_view> operationNames(const ServiceRow& service) {
    std::vector<std::string_view> names;
    for (const OperationRow& operation : service.operations)
        names.emplace_back(operation.name);
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

std::vector<std::string_view> allNames() {
    std::vector<std::string_view> names;
    for (const TypeRow& type : types())
        names.insert(names.end(), {type.name, type.className});
    for (const MessageRow& message : messages()) {
        const std::string_view name = message.name;
        names.insert(names.end(), {name, name.substr(0, name.rfind('_')), message.className});
    }
    for (const ServiceRow& service : services()) {
        names.insert(names.end(), {service.name, service.className});
        for (const OperationRow& operation : service.operations)
            names.emplace_back(operation.name);
    }
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

} // namespace mrl::tool
