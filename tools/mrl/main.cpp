#include "MRLVersion.h"
#include "commands/Command.h"
#include "commands/NotFound.h"

#include "HBLCore/HBLThrowable.h"

#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <poll.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

using namespace mrl::tool;

namespace {

/// The last command of the line, and what to type for it.
const CLI::App& lastGiven(const CLI::App& app, std::string& typed) {
    typed += (typed.empty() ? "" : " ") + app.get_name();
    const auto given = app.get_subcommands();
    return given.empty() ? app : lastGiven(*given.front(), typed);
}

/// Help, the version, or a complaint that names what was given and where to read on.
int endParsing(const CLI::App& app, const CLI::ParseError& e) {
    if (e.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
        return app.exit(e);
    std::string typed;
    const CLI::App& last = lastGiven(app, typed);
    const std::vector<std::string> unknown = last.remaining();
    if (last.get_require_subcommand_min() == 0 || unknown.empty()) {
        std::cerr << "mrl: " << e.what() << '\n';
    } else if (unknown.front().starts_with('-')) {
        std::cerr << "mrl: there is no option '" << unknown.front() << "'\n";
    } else {
        const auto commands = last.get_subcommands([](const CLI::App*) { return true; });
        std::vector<std::string> names;
        names.reserve(commands.size());
        for (const CLI::App* command : commands)
            names.push_back(command->get_name());
        notFound("command", unknown.front(), {names.begin(), names.end()});
    }
    std::cerr << "mrl: `" << typed << " --help` tells what there is\n";
    return e_Usage;
}

/// Whether standard output is a pipe that nobody reads any more.
bool hasReaderGone() {
    struct pollfd out {
        STDOUT_FILENO, POLLOUT, 0
    };
    return poll(&out, 1, 0) > 0 && (out.revents & POLLERR) != 0;
}

/// What was printed may have gone to a disk that is full: then it was not done, whatever the command says.
/// Who reads no further, such as `head`, has had enough, which is no reason to complain.
int finished(int code) {
    if (std::cout.flush())
        return code;
    if (hasReaderGone())
        return code == e_Ok ? 128 + SIGPIPE : code;
    std::cerr << "mrl: the output is not complete: standard output cannot be written; free the disk, or send "
                 "it elsewhere\n";
    return code == e_Ok ? int{e_No} : code;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app(
        "Asks the toolkit, and works with it: its catalogue, calls, recordings, configuration, keys.", "mrl");
    app.footer(
        "Exit codes: 0 done, 1 refused or not found, 2 wrong usage. `mrl COMMAND --help` tells the others.");
    app.require_subcommand(1);
    app.set_version_flag("--version", std::string("mrl ") + mrlVersion(), "Print the version and exit");
    const Commands commands = {
        addListCommand(app),   addDescribeCommand(app), addCatalogueCommand(app),
        addRecordCommand(app), addReplayCommand(app),   addTrafficCommand(app),
        addCallCommand(app),   addConfigCommand(app),   addKeysCommand(app),
    };
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return finished(endParsing(app, e));
    }
    try {
        const auto given =
            std::ranges::find_if(commands, [](const Command& command) { return command.options->parsed(); });
        return finished(given->run());
    } catch (const HBLThrowable& e) {
        std::cerr << "mrl: " << e.getMessage() << '\n';
    } catch (const std::exception& e) {
        std::cerr << "mrl: " << e.what() << '\n';
    }
    return e_No;
}
