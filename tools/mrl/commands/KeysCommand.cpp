#include "commands/Command.h"
#include "keys/Keys.h"

#include <iostream>
#include <memory>
#include <string>

namespace mrl::tool {

Command addKeysCommand(CLI::App& app) {
    CLI::App* options = app.add_subcommand("keys", "The key store of this installation");
    options->require_subcommand(1);
    const auto store = std::make_shared<std::string>();
    options->add_option(
        "--store", *store,
        "The store's file, instead of the one that MRL_KEY_STORE, the configuration or the default names");
    CLI::App* init = options->add_subcommand("init", "Makes the store, with its first key");
    CLI::App* list =
        options->add_subcommand("list", "Checks the store and names its keys, never what they are");
    CLI::App* rotate =
        options->add_subcommand("rotate", "Adds a key that writes from now on; all keys go on reading");
    for (CLI::App* action : {init, list, rotate}) {
        action->fallthrough();
        action->footer("--store FILE takes another store, as `mrl keys --help` tells.\n"
                       "Exit codes: 0 done, 1 the store cannot be used, 2 wrong usage.");
    }
    return {options, [=]() -> int {
                const std::string path = keyStorePath(*store);
                if (init->parsed())
                    return initKeys(path, std::cout, std::cerr) ? e_Ok : e_No;
                list->parsed() ? listKeys(path, std::cout) : rotateKeys(path, std::cout);
                return e_Ok;
            }};
}

} // namespace mrl::tool
