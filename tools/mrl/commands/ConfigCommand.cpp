#include "Session/MRLPropertyFile.h"
#include "commands/Command.h"
#include "config/ConfigCheck.h"
#include "config/ConfigFile.h"
#include "config/ConfigShow.h"
#include "config/KeyStoreCheck.h"
#include "config/PropertyFileCheck.h"

#include "HBLCore/HBLFmDir.h"
#include "logipf2/LogConfigurationError.h"
#include "logipf2/LogIPFControl.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

namespace mrl::tool {

namespace {

using Finding = HBLConfigurationFinding;

struct ConfigOptions {
    CLI::App* show = nullptr; // owned by the parent, as the others
    std::string file;
    bool isStrict = false;
};

std::string counted(std::size_t n, const char* one, const char* more) {
    return std::to_string(n) + " " + (n == 1 ? one : more);
}

int noFile(const ConfigFile& file) {
    std::cout << "# no file at " << file.path << " (" << file.origin << "): the defaults hold\n";
    return e_Ok;
}

/// Prints the findings of a file, and the line that counts them.
int report(const std::string& path, std::size_t properties, const std::vector<Finding>& findings,
           bool isStrict) {
    printFindings(findings, std::cout);
    const auto errors =
        static_cast<std::size_t>(std::ranges::count(findings, Finding::eWrong, &Finding::weight));
    std::cout << path << ": " << counted(properties, "property", "properties") << ", "
              << counted(errors, "error", "errors") << ", "
              << counted(findings.size() - errors, "warning", "warnings") << '\n';
    return errors != 0 || (isStrict && !findings.empty()) ? e_No : e_Ok;
}

/// A logging configuration: the first mistake ends its reading, so there is one finding at most.
int checkLogging(const std::string& path) {
    try {
        LogIPFControl::checkConfiguration(std::filesystem::absolute(path));
    } catch (const LogConfigurationError& e) {
        std::cout << e.getMessage() << '\n';
        return e_No;
    }
    std::cout << path << ": a logging configuration that can be used\n";
    return e_Ok;
}

int checkProperties(const std::string& path, bool isStrict) {
    const PropertyFile file = examinedProperties(path);
    return report(path, file.count, file.findings, isStrict);
}

int checkConfiguration(const ConfigFile& file, bool isStrict) {
    if (!file.isThere) {
        const auto findings = examinedKeyStore(nullptr);
        printFindings(findings, std::cout);
        noFile(file);
        return findings.empty() ? e_Ok : e_No;
    }
    const auto document = HBLConfigurationDocument::read(file.path);
    auto findings = examined(document);
    for (Finding& finding : examinedKeyStore(&document)) {
        findings.push_back(std::move(finding));
    }
    return report(file.path, document.getProperties().size(), findings, isStrict);
}

/// All that the toolkit would load. Only the configuration is spoken of when it is missing.
int checkEverything(bool isStrict) {
    int code = checkConfiguration(configFile(""), isStrict);
    std::string properties = MRLPropertyFile::s_location;
    HBLFmDir::resolveEffectivePath(properties);
    if (HBLFmDir::exists(properties.c_str(), 0) != 0) {
        code = std::max(code, checkProperties(properties, isStrict));
    }
    if (const auto logging = LogIPFControl::getLocation();
        logging.isFromEnvironment || HBLFmDir::exists(logging.path.c_str(), 0) != 0) {
        code = std::max(code, checkLogging(logging.path));
    }
    return code;
}

int check(const ConfigOptions& options) {
    if (options.file.empty()) {
        return checkEverything(options.isStrict);
    }
    if (options.file.ends_with(".json")) {
        return checkLogging(options.file);
    }
    const auto propertyFile = std::filesystem::path(MRLPropertyFile::s_location).filename();
    return std::filesystem::path(options.file).filename() == propertyFile
               ? checkProperties(options.file, options.isStrict)
               : checkConfiguration(configFile(options.file), options.isStrict);
}

int show(const ConfigOptions& options) {
    const ConfigFile file = configFile(options.file);
    if (!file.isThere) {
        noFile(file);
        printConfiguration(nullptr, std::cout);
        return e_Ok;
    }
    const auto document = HBLConfigurationDocument::read(file.path);
    document.requireSound();
    std::cout << "# " << file.path << " (" << file.origin << ")\n";
    printConfiguration(&document, std::cout);
    return e_Ok;
}

} // namespace

Command addConfigCommand(CLI::App& app) {
    CLI::App* options = app.add_subcommand("config", "What is configured, and what is wrong with it");
    options->require_subcommand(1);
    options->footer(
        "Without FILE it is the file that the toolkit would load: the one that MRL_CONFIGURATION names, "
        "else ../configuration/qzconfig.xml as seen from the programs.\n"
        "Exit codes: 0 done, 1 the file cannot be used, 2 wrong usage.");
    const auto given = std::make_shared<ConfigOptions>();
    CLI::App* const checking =
        options->add_subcommand("check", "Finds mistakes: one line each, with its place and the remedy");
    checking->add_option("FILE", given->file,
                         "A configuration file; a logging configuration when its name ends in .json; a file "
                         "of properties when it is named renqproperties.xml");
    checking->add_flag("--strict", given->isStrict, "Warnings count as errors");
    checking->footer(
        "Without FILE it is all that the toolkit would load: the configuration, and, where they are there, "
        "the key store, the properties and the logging configuration. With the configuration its key store "
        "is checked.\nExit codes: 0 usable, 1 there are errors (with --strict: or warnings), 2 wrong usage.");
    given->show = options->add_subcommand("show", "What holds and where it comes from; secrets are masked");
    given->show->add_option("FILE", given->file, "A configuration file");
    return {options, [given]() -> int { return given->show->parsed() ? show(*given) : check(*given); }};
}

} // namespace mrl::tool
