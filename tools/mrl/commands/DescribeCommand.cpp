#include "commands/Command.h"
#include "commands/NotFound.h"
#include "lookup/Catalogue.h"
#include "lookup/Describe.h"

#include <iostream>
#include <memory>
#include <string>

namespace mrl::tool {

namespace {

/// For SERVICE.OPERATION with a service that is there, the operations of that one are what was meant.
int nothingOfThatName(const std::string& name) {
    const std::size_t dot = name.find('.');
    const ServiceRow* service =
        dot == std::string::npos ? nullptr : findService(std::string_view(name).substr(0, dot));
    if (service == nullptr)
        return notFound("service, operation, message, type or enumeration", name, allNames());
    const std::string what = std::string("operation of ") + service->name;
    return notFound(what, std::string_view(name).substr(dot + 1), operationNames(*service));
}

} // namespace

Command addDescribeCommand(CLI::App& app) {
    CLI::App* options = app.add_subcommand("describe", "Everything of a name, such as query or baseClass");
    const auto name = std::make_shared<std::string>();
    options->add_option("NAME", *name, "A service, operation, SERVICE.OPERATION, message, type or C++ class")
        ->required();
    return {options,
            [name]() -> int { return describe(*name, std::cout) ? int{e_Ok} : nothingOfThatName(*name); }};
}

} // namespace mrl::tool
