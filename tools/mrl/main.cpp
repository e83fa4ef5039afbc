#include "commands/Command.h"

#include "HBLCore/HBLThrowable.h"

#include <algorithm>
#include <exception>
#include <iostream>

using namespace mrl::tool;

int main(int argc, char** argv) {
    CLI::App app(
        "Asks the toolkit, and works with it: its catalogue, calls, recordings, configuration, keys.", "mrl");
    app.footer(
        "Exit codes: 0 done, 1 refused or not found, 2 wrong usage. `mrl COMMAND --help` tells the others.");
    app.require_subcommand(1);
    const Commands commands = {
        addListCommand(app),   addDescribeCommand(app), addCatalogueCommand(app),
        addRecordCommand(app), addReplayCommand(app),   addTrafficCommand(app),
        addCallCommand(app),   addConfigCommand(app),   addKeysCommand(app),
    };
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? e_Ok : e_Usage;
    }
    try {
        const auto given =
            std::ranges::find_if(commands, [](const Command& command) { return command.options->parsed(); });
        return given->run();
    } catch (const HBLThrowable& e) {
        std::cerr << "mrl: " << e.getMessage() << '\n';
    } catch (const std::exception& e) {
        std::cerr << "mrl: " << e.what() << '\n';
    }
    return e_No;
}
