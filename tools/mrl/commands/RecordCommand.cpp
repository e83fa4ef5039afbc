#include "commands/Command.h"
#include "traffic/RecordRun.h"

#include <memory>

namespace mrl::tool {

Command addRecordCommand(CLI::App& app) {
    CLI::App* options = app.add_subcommand("record", "Runs a program and records its calls");
    options->footer(
        "The exit code is the program's, 128 and the signal that ended it, or 1 when it made no call; 127 "
        "when "
        "it cannot be found, 126 when it cannot be run. Example: mrl record --into run1 -- ./nightly.sh");
    const auto run = std::make_shared<RecordRun>();
    options->add_option("--into", run->directory, "New or empty directory for the recording")
        ->capture_default_str();
    options->add_option("COMMAND", run->command, "The program and its arguments, behind --")->required();
    return {options, [run] { return run->run(); }};
}

} // namespace mrl::tool
