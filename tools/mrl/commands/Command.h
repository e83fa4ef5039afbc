#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <vector>

namespace mrl::tool {

/// What every subcommand ends in, besides the exit codes of its own that its help names.
enum ExitCode { e_Ok = 0, e_No = 1, e_Usage = 2 };

/// A subcommand as it stands on the command line, and what runs when it was given. The callback owns the
/// variables that the options write to.
struct Command {
    CLI::App* options; // owned by the parent
    std::function<int()> run;
};

using Commands = std::vector<Command>;

/// Each adds its subcommand to `app`. A subcommand is a file of this folder; what it works with has a folder
/// of its own beside this one.
Command addListCommand(CLI::App& app);
Command addDescribeCommand(CLI::App& app);
Command addCatalogueCommand(CLI::App& app);
Command addRecordCommand(CLI::App& app);
Command addReplayCommand(CLI::App& app);
Command addTrafficCommand(CLI::App& app);
Command addCallCommand(CLI::App& app);
Command addConfigCommand(CLI::App& app);
Command addKeysCommand(CLI::App& app);

} // namespace mrl::tool
