#include "commands/Command.h"
#include "count/Figures.h"
#include "data/CatalogueData.h"

#include <iostream>
#include <memory>

namespace mrl::tool {

namespace {

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

Command addCatalogueCommand(CLI::App& app) {
    CLI::App* options = app.add_subcommand("catalogue", "What the built library holds");
    const auto counts = std::make_shared<bool>(false);
    options
        ->add_flag("--counts", *counts,
                   "Counts it, and compares with what it should hold; differences go to stderr")
        ->required();
    return {options, [counts]() -> int { return printCounts(); }};
}

} // namespace mrl::tool
