#include "commands/Command.h"
#include "commands/NotFound.h"
#include "lookup/Catalogue.h"
#include "lookup/Describe.h"

#include <iostream>
#include <memory>
#include <string>

namespace mrl::tool {

Command addDescribeCommand(CLI::App& app) {
    CLI::App* options = app.add_subcommand("describe", "Everything of a name, such as query or baseClass");
    const auto name = std::make_shared<std::string>();
    options->add_option("NAME", *name, "A service, operation, SERVICE.OPERATION, message, type or C++ class")
        ->required();
    return {options, [name]() -> int {
                return describe(*name, std::cout)
                           ? e_Ok
                           : notFound("service, operation, message, type or enumeration", *name, allNames());
            }};
}

} // namespace mrl::tool
