#include "commands/Command.h"
#include "commands/NotFound.h"
#include "data/CatalogueData.h"
#include "lookup/Describe.h"

#include <iostream>
#include <memory>
#include <string>

namespace mrl::tool {

namespace {

ExitCode list(const std::string& service) {
    if (service.empty()) {
        listServices(std::cout);
        return e_Ok;
    }
    if (listOperations(service, std::cout))
        return e_Ok;
    std::vector<std::string_view> names;
    for (const ServiceRow& row : services())
        names.emplace_back(row.name);
    return notFound("service", service, names);
}

} // namespace

Command addListCommand(CLI::App& app) {
    CLI::App* options = app.add_subcommand("list", "The services, or the operations of one");
    const auto service = std::make_shared<std::string>();
    options->add_option("SERVICE", *service, "Such as contentManagerService");
    return {options, [service] { return list(*service); }};
}

} // namespace mrl::tool
