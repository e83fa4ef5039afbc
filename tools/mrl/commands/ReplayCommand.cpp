#include "commands/Command.h"
#include "traffic/ReplayRun.h"

#include <memory>

namespace mrl::tool {

Command addReplayCommand(CLI::App& app) {
    CLI::App* options =
        app.add_subcommand("replay", "Runs a program and answers its calls from a recording, without a bus");
    options->footer("The exit code is the program's when it failed, else 1 when it sent something else than "
                    "was recorded, else 0. Example: mrl replay run1 -- ./nightly.sh");
    const auto run = std::make_shared<ReplayRun>();
    options->add_option("DIRECTORY", run->directory, "The recording")->required();
    options->add_option("COMMAND", run->command, "The program and its arguments, behind --")->required();
    options->add_option("--sent", run->sent, "New or empty directory that keeps what the program sent");
    options->add_option("--ignore", run->ignored,
                        "A further place that may differ, such as tracking/startTime");
    options->add_option("--rules", run->rules, "A file of such places, one a line");
    return {options, [run] { return run->run(); }};
}

} // namespace mrl::tool
