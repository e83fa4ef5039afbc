#pragma once

#include "data/CatalogueData.h"

#include <string_view>
#include <vector>

namespace mrl::tool {

/// Null when there is none. A C++ class name is as good as a schema name.
const TypeRow* findType(std::string_view name);
const MessageRow* findMessage(std::string_view name);
const ServiceRow* findService(std::string_view name);

/// The types derived from `parent`, one step down.
std::vector<const TypeRow*> childrenOf(std::string_view parent);

/// The type and its ancestors, the root first.
std::vector<const TypeRow*> lineageOf(const TypeRow& type);

/// An operation and the service that offers it.
struct FoundOperation {
    const ServiceRow* service;
    const OperationRow* operation;
};

/// All signatures of an operation; `name` is "query", or "contentManagerService.query" for one service.
std::vector<FoundOperation> findOperations(std::string_view name);

/// The operations of a service, each once however many signatures it has.
std::vector<std::string_view> operationNames(const ServiceRow& service);

/// Every name that can be described.
std::vector<std::string_view> allNames();

} // namespace mrl::tool
