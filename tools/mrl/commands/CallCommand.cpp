#include "call/Caller.h"
#include "call/Template.h"
#include "commands/Command.h"
#include "commands/NotFound.h"
#include "files/FileText.h"
#include "lookup/Catalogue.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

namespace mrl::tool {

namespace {

constexpr int templateIndentation = 2;

struct CallOptions {
    std::string service;
    std::string operation;
    std::string request; // the one signature that is meant
    std::string data = "{}";
    std::string header;
    std::vector<std::string> attachments;
    std::string trusted = "no";
    bool asTemplate = false;
    int depth = 2;
    CallSettings settings;
};

/// The text of an argument: itself, of the file behind "@", or of standard input for "-".
std::string textOf(const std::string& argument) {
    if (argument == "-")
        return {std::istreambuf_iterator<char>(std::cin), {}};
    if (!argument.starts_with('@'))
        return argument;
    return fileText(argument.substr(1));
}

int unknownService(const std::string& name) {
    std::vector<std::string_view> names;
    for (const ServiceRow& row : services())
        names.emplace_back(row.name);
    return notFound("service", name, names);
}

int unknownOperation(const ServiceRow& service, const CallOptions& options) {
    std::vector<std::string_view> names;
    std::string requests; // of the operation, when there is one of that name
    for (const OperationRow& operation : service.operations) {
        names.emplace_back(operation.name);
        if (options.operation == operation.name)
            requests.append(requests.empty() ? "" : ", ").append(operation.request);
    }
    if (!requests.empty()) {
        std::cerr << "mrl: the operation '" << options.operation << "' has no request '" << options.request
                  << "'; it has " << requests << '\n';
        return e_No;
    }
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return notFound("operation", options.operation, names);
}

std::vector<const OperationRow*> signaturesOf(const ServiceRow& service, const CallOptions& options) {
    std::vector<const OperationRow*> signatures;
    for (const OperationRow& operation : service.operations)
        if (options.operation == operation.name &&
            (options.request.empty() || findMessage(options.request) == findMessage(operation.request)))
            signatures.push_back(&operation);
    return signatures;
}

int printTemplates(const std::vector<const OperationRow*>& signatures, int depth) {
    for (const OperationRow* operation : signatures) {
        if (signatures.size() > 1)
            std::cerr << "--request " << operation->request << '\n';
        std::cout << requestTemplate(*findMessage(operation->request), depth).dump(templateIndentation)
                  << '\n';
    }
    return e_Ok;
}

int run(CallOptions& options) {
    const ServiceRow* service = findService(options.service);
    if (service == nullptr)
        return unknownService(options.service);
    const auto signatures = signaturesOf(*service, options);
    if (signatures.empty())
        return unknownOperation(*service, options);
    if (options.asTemplate)
        return printTemplates(signatures, options.depth);
    if (options.trusted != "no")
        options.settings.trusted = options.trusted == "yes" ? MRLSOAPSession::eMRLSOAPTrusted
                                                            : MRLSOAPSession::eMRLSOAPTrustedOnDenial;
    try {
        const BuiltRequest request = buildRequest(*service, signatures, parseJson(textOf(options.data)));
        if (!options.header.empty())
            options.settings.header = parseJson(textOf(options.header));
        for (const std::string& attachment : options.attachments)
            options.settings.attachments.push_back(AttachedFile::parse(attachment));
        return call(request, options.settings);
    } catch (const JsonError& e) {
        std::cerr << "mrl: nothing was sent: " << e.what() << '\n';
        return e_No;
    }
}

} // namespace

Command addCallCommand(CLI::App& app) {
    CLI::App* options = app.add_subcommand("call", "Calls an operation with a request built from JSON");
    options->footer(
        "Exit codes: 0 the reply is on standard output, 1 refused before anything was sent, 2 wrong "
        "usage, 3 a fault of the service, 4 the exchange failed, 5 the reply cannot be used.");
    const auto given = std::make_shared<CallOptions>();
    CallSettings& settings = given->settings;
    options->add_option("SERVICE", given->service, "Such as contentManagerService")->required();
    options->add_option("OPERATION", given->operation, "Such as query")->required();
    options->add_option("-d,--data", given->data,
                        "The parameters as a JSON object; @FILE reads it from a file, - from standard input");
    options->add_option("-u,--url", settings.url,
                        "Where the service listens; without it the configuration tells");
    options->add_option(
        "--request", given->request,
        "Of an operation with several signatures the one with this request, such as copy_2_Request");
    options->add_flag("--template", given->asTemplate, "Prints a skeleton of the JSON and calls nothing");
    options->add_option("--depth", given->depth, "Levels of objects in the skeleton")
        ->check(CLI::Range(0, 8))
        ->capture_default_str();
    options
        ->add_option("--trusted", given->trusted,
                     "Encrypts the request: yes, no, or on-denial to send it again encrypted after a denial")
        ->check(CLI::IsMember({"yes", "no", "on-denial"}))
        ->capture_default_str();
    options->add_option("--client", settings.client, "The service id of the caller")->capture_default_str();
    options->add_option("--passport", settings.passport, "The id of the passport of a logon, for the header");
    options->add_option("--header", given->header,
                        "The header, an object of the class tavelHeader: JSON, @FILE or -");
    options
        ->add_option("--retries", settings.retries,
                     "How often a request is sent again whose reply broke off; 0 means 10, as in the "
                     "properties file")
        ->check(CLI::Range(0, 1000000));
    options->add_option("--time-limit", settings.timeLimit, "Seconds for the whole call; 0 for no such limit")
        ->check(CLI::Range(0, 1000000));
    options->add_option("--attach", given->attachments,
                        "ID=FILE or ID=FILE;TYPE: a file for what the JSON refers to by {\"@cid\": ID}");
    options->add_flag("--compress", settings.compress, "Packs the attachments with gzip");
    options->add_option("--save", settings.saveDirectory,
                        "Saves the attachments of the reply in this directory and prints their names");
    options->add_flag("-v,--verbose", settings.verbose, "Both envelopes to standard error");
    return {options, [given]() -> int { return run(*given); }};
}

} // namespace mrl::tool
