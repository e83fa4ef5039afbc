#include "count/Figures.h"
#include "data/CatalogueData.h"
#include "lookup/Catalogue.h"
#include "lookup/Describe.h"
#include "lookup/Nearest.h"

#include "HBLCore/HBLThrowable.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

namespace {

using namespace mrl::tool;

enum ExitCode { e_Ok = 0, e_No = 1, e_Usage = 2 };

ExitCode notFound(const std::string& what, const std::string& name,
                  const std::vector<std::string_view>& names) {
    std::cerr << "mrl: there is no " << what << " '" << name << "'";
    const char* separator = "; did you mean ";
    for (const std::string_view near : nearest(name, names)) {
        std::cerr << separator << near;
        separator = ", ";
    }
    std::cerr << '\n';
    return e_No;
}

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

ExitCode describeName(const std::string& name) {
    return describe(name, std::cout)
               ? e_Ok
               : notFound("service, operation, message, type or enumeration", name, allNames());
}

ExitCode printCounts() {
    if (expectedFigures().empty()) {
        std::cerr << "mrl: the catalogue was rendered without a table of figures (figures.toml)\n";
        return e_No;
    }
    if (countLibrary().compare(expectedFigures(), std::cout, std::cerr) == 0)
        return e_Ok;
    std::cerr << "mrl: the library does not hold what it should\n";
    return e_No;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Tells what the toolkit knows: services, messages and types. Works offline.", "mrl");
    app.footer("Exit codes: 0 done, 1 nothing of that name or a figure that differs, 2 wrong usage.");
    app.require_subcommand(1);
    std::string name;

    CLI::App* listing = app.add_subcommand("list", "The services, or the operations of one");
    listing->add_option("SERVICE", name, "Such as contentManagerService");

    CLI::App* description =
        app.add_subcommand("describe", "Everything of a name, such as query or baseClass");
    description
        ->add_option("NAME", name, "A service, operation, SERVICE.OPERATION, message, type or C++ class")
        ->required();

    bool counts = false;
    CLI::App* catalogue = app.add_subcommand("catalogue", "What the built library holds");
    catalogue
        ->add_flag("--counts", counts,
                   "Counts it, and compares with what it should hold; differences go to stderr")
        ->required();

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? e_Ok : e_Usage;
    }
    try {
        if (*listing)
            return list(name);
        return *description ? describeName(name) : printCounts();
    } catch (const HBLThrowable& e) {
        std::cerr << "mrl: " << e.getMessage() << '\n';
    } catch (const std::exception& e) {
        std::cerr << "mrl: " << e.what() << '\n';
    }
    return e_No;
}
