#include "commands/Command.h"
#include "files/FileText.h"
#include "traffic/Difference.h"
#include "traffic/Listing.h"
#include "traffic/Redaction.h"
#include "traffic/Verification.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace mrl::tool {

namespace {

/// Some files could not be searched for secrets.
constexpr int e_Unsearched = 3;

/// What the subcommands' options write to.
struct TrafficOptions {
    std::string directory;
    std::string other;
    std::string call;
    std::string only; // "request", "reply", or both
    bool requestsOnly = false;
    bool strict = false;
    std::string into;
    std::vector<std::string> rules;
    std::vector<std::string> places;
    std::vector<std::string> values;
    std::string valueFile;
};

void addTo(PathRules& rules, const TrafficOptions& options) {
    for (const std::string& place : options.places)
        rules.add(place);
    for (const std::string& file : options.rules)
        rules.addFile(file);
}

void addLines(Secrets& secrets, const std::string& path) {
    std::istringstream lines(fileText(path));
    for (std::string line; std::getline(lines, line);)
        if (!line.empty())
            secrets.addValue(line);
}

int list(const TrafficOptions& options) {
    printList(Recording::readCalls(options.directory), std::cout);
    return e_Ok;
}

int show(const TrafficOptions& options) {
    const Recording recording = Recording::read(options.directory);
    const Shown shown = options.only.empty()        ? Shown::both
                        : options.only == "request" ? Shown::request
                                                    : Shown::reply;
    printCall(recording.find(options.call), shown, std::cout);
    return e_Ok;
}

int diff(const TrafficOptions& options) {
    PathRules rules = options.strict ? PathRules() : PathRules::volatilePlaces();
    addTo(rules, options);
    const std::size_t differing =
        printDifferences(Recording::readCalls(options.directory), Recording::readCalls(options.other), rules,
                         options.requestsOnly ? Compared::requests : Compared::all, std::cout);
    return differing == 0 ? e_Ok : e_No;
}

int verifyRecording(const TrafficOptions& options) {
    const Recording recording = Recording::read(options.directory);
    const std::vector<Finding> findings = verify(recording);
    for (const Finding& finding : findings)
        std::cout << (finding.weight == Finding::problem ? "problem: " : "note: ") << finding.place << ": "
                  << finding.words << '\n';
    const auto problems = std::ranges::count(findings, Finding::problem, &Finding::weight);
    std::cout << recording.calls.size() << (recording.calls.size() == 1 ? " call, " : " calls, ") << problems
              << (problems == 1 ? " problem\n" : " problems\n");
    return problems == 0 ? e_Ok : e_No;
}

int redactRecording(const TrafficOptions& options) {
    PathRules rules = PathRules::secretPlaces();
    addTo(rules, options);
    Secrets secrets(std::move(rules));
    for (const std::string& value : options.values)
        secrets.addValue(value);
    if (!options.valueFile.empty())
        addLines(secrets, options.valueFile);
    const Redacted result = redact(Recording::read(options.directory), secrets, options.into);
    std::cout << result.files << " files, " << secrets.size() << " secrets masked in " << result.masks
              << " places\n";
    for (const std::string& name : result.leftOut)
        std::cerr << "mrl: left out: " << name << ", which no session writes\n";
    for (const std::string& name : result.unsearched)
        std::cerr << "mrl: look at it yourself: " << name << '\n';
    return result.unsearched.empty() ? e_Ok : e_Unsearched;
}

using Run = int (*)(const TrafficOptions&);

CLI::App* addRun(CLI::App& parent, const char* name, const char* help, TrafficOptions& options,
                 std::map<CLI::App*, Run>& runs, Run run) {
    CLI::App* added = parent.add_subcommand(name, help);
    added->add_option("DIRECTORY", options.directory, "The recording")->required();
    runs[added] = run;
    return added;
}

} // namespace

Command addTrafficCommand(CLI::App& app) {
    CLI::App* parent = app.add_subcommand("traffic", "Looks into recordings");
    parent->require_subcommand(1);
    const auto options = std::make_shared<TrafficOptions>();
    const auto runs = std::make_shared<std::map<CLI::App*, Run>>();

    addRun(*parent, "list", "The calls of a recording", *options, *runs, list);

    CLI::App* showing = addRun(*parent, "show", "A call, indented", *options, *runs, show);
    showing->add_option("CALL", options->call, "As `list` names it, such as contentManagerService.0")
        ->required();
    showing->add_option("--only", options->only, "Only the request, or only the reply")
        ->check(CLI::IsMember({"request", "reply"}));

    CLI::App* differing =
        addRun(*parent, "diff", "What a second recording has otherwise than a first", *options, *runs, diff);
    differing->add_option("OTHER", options->other, "The second recording")->required();
    differing->add_flag("--requests", options->requestsOnly, "Only what was sent");
    differing->add_flag("--strict", options->strict, "Ids, times and tokens count too");
    differing->add_option("--ignore", options->places,
                          "A further place that may differ, such as tracking/userAgent");
    differing->add_option("--rules", options->rules, "A file of such places, one a line");
    differing->footer("Exit codes: 0 no difference, 1 something differs or cannot be read, 2 wrong usage.");

    CLI::App* redacting =
        addRun(*parent, "redact", "A copy with the secrets masked", *options, *runs, redactRecording);
    redacting->add_option("--into", options->into, "The new directory for the copy")->required();
    redacting->add_option("--secret", options->values, "A text to mask wherever it stands");
    redacting->add_option("--secrets", options->valueFile, "A file of such texts, one a line");
    redacting->add_option("--place", options->places, "A further secret place, such as item/apiKey");
    redacting->add_option("--rules", options->rules, "A file of such places, one a line");
    redacting->footer(
        "Exit codes: 0 done, 1 the copy could not be made, 2 wrong usage, 3 made, and files hold packed "
        "or encrypted data that could not be searched.");

    CLI::App* verifying = addRun(*parent, "verify", "Whether a recording is complete and well-formed",
                                 *options, *runs, verifyRecording);
    verifying->footer("Exit codes: 0 it is, 1 it is not or cannot be read, 2 wrong usage.");

    return {parent,
            [parent, options, runs] { return runs->at(parent->get_subcommands().front())(*options); }};
}

} // namespace mrl::tool
