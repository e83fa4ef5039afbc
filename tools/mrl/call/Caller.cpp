#include "call/Caller.h"

#include "Session/MRL.h"
#include "Session/MRLDocIo.h"
#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailArray.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "call/PropertyAccess.h"
#include "call/StreamFiles.h"
#include "commands/Command.h"
#include "serialization/MRLFromFactory.h"
#include "serialization/MRLSOAPFaultException.h"
#include "serialization/MRLSOAPMessageISerializerFactory.h"
#include "serialization/MRLSOAPMessageISerializerI.h"

#include "HBLCore/HBLThrowable.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "TavelTK/TavelTKError.h"
#include "TavelTK/TavelTKException.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace mrl::tool {

namespace {

constexpr std::size_t pieceSize = 65536;
constexpr int indentation = 2;

/// The session has no limit but its own, so the whole process ends.
extern "C" void timeIsUp(int /*signal*/) {
    constexpr std::string_view text = "mrl: the time limit of the call has passed\n";
    [[maybe_unused]] const auto written = write(STDERR_FILENO, text.data(), text.size());
    _exit(transportExit);
}

void limitTime(unsigned seconds) {
    if (seconds == 0)
        return;
    std::signal(SIGALRM, timeIsUp);
    alarm(seconds);
}

/// Starts the toolkit for as long as the object lives.
class Toolkit {
public:
    Toolkit() {
        MRL::initialize();
        MRLDocIo::initialize(); // attachments are documents
    }
    ~Toolkit() {
        MRLDocIo::terminate();
        MRL::terminate();
    }
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;
};

void printEnvelope(const char* what, const MRLPortTypeBinding& binding, MRLMessageI& message) {
    PLQMemoryOutputStream out(pieceSize, pieceSize);
    const auto writer = mrlFromFactory<MRLSOAPMessageISerializerFactory>();
    writer->serialize(const_cast<MRLPortTypeBinding&>(binding), message, out, nullptr, 1, 0);
    std::cerr << "mrl: " << what << '\n'
              << std::string_view(out.bytes(), static_cast<std::size_t>(out.length()));
}

/// The request's own header, as the settings have it.
void setHeader(MRLMessageI& request, const CallSettings& settings) {
    MRLObjectRegistryI& registry = request.getObjectRegistry();
    if (!settings.header.is_null()) {
        ValueBuilder builder(registry);
        request.setTavelHeader(static_cast<MRLTavelHeader*>(
            builder.makeObject(MRLTavelHeader::s_objectType, settings.header, "header")));
    }
    MRLTavelHeader& header = *request.getTavelHeader(&registry);
    if (!settings.passport.empty())
        header.getZOR(&registry)->getZORPassport(&registry)->setId(settings.passport.c_str());
}

void printFault(MRLSOAPFault& fault) {
    const auto orNothing = [](const char* text) { return text == nullptr ? "" : text; };
    std::cerr << "mrl: the service answered with a fault: " << orNothing(fault.getFaultCode()) << ": "
              << orNothing(fault.getFaultString()) << '\n';
    if (MRLFaultDetailArray* details = fault.getDetail())
        for (const MRLFaultDetail* detail : *details)
            if (detail != nullptr)
                std::cerr << "  " << orNothing(detail->getErrorCode()) << '\n';
    std::string messages;
    fault.getMessages(messages);
    if (!messages.empty())
        std::cerr << "  " << messages << '\n';
}

int exitCodeOf(const TavelTKException& e) {
    const auto error = static_cast<TavelTKError>(e.getErrorCode());
    if (error >= TavelTKError::badHttpReply && error <= TavelTKError::replyTooLarge)
        return badReplyExit;
    return e.getPhase() == TavelTKPhase::prepare ? int{e_No} : transportExit;
}

/// Whether the reply was being read when it happened, as the back trace tells.
bool cameWithTheReply(const HBLThrowable& e) {
    return std::ranges::any_of(e.getBackTrace(), [](const std::string& entry) {
        return entry.find("MRLSOAPSession::receive") != std::string::npos;
    });
}

int tell(const HBLThrowable& e, int exitCode) {
    std::cerr << "mrl: " << e.getMessage() << '\n';
    return exitCode;
}

/// Why the crypto library refused: only the back trace tells.
std::string refusalIn(const HBLThrowable& e) {
    constexpr std::string_view before = " - ";
    const std::vector<std::string>& entries = e.getBackTrace();
    if (entries.empty())
        return {};
    const std::size_t begin = entries.front().find(before);
    const std::size_t end = entries.front().rfind(" [");
    return begin == std::string::npos || end == std::string::npos || end < begin
               ? std::string()
               : entries.front().substr(begin + before.size(), end - begin - before.size());
}

/// What happened, in plain words also where the library knows only a condition that did not hold.
int tellCondition(const HBLThrowable& e) {
    const std::string_view condition = e.getMessage();
    if (condition.find("not found in configuration") != condition.npos)
        std::cerr
            << "mrl: there is no --url, and the configuration has no address for this service: give one, "
               "or set it there (`mrl config show` names the file)\n";
    else if (const std::string refusal = refusalIn(e);
             condition.find("ZOR_SUCCEEDED") != condition.npos && !refusal.empty())
        std::cerr << "mrl: the request could not be encrypted: " << refusal << '\n';
    else
        std::cerr << "mrl: " << condition << '\n';
    return e_No;
}

void submit(MRLPortTypeBinding& binding, const MRLAttachmentList& attachments, const CallSettings& settings) {
    if (settings.retries)
        setRetries(*settings.retries);
    MRLSOAPSession session(binding.getInputMessage().getTavelHeader(nullptr), nullptr, nullptr, nullptr,
                           nullptr, settings.client.c_str());
    session.setURI(settings.url);
    limitTime(settings.timeLimit);
    session.submit(binding, attachments, settings.trusted, nullptr);
    alarm(0);
}

std::unique_ptr<StreamKeeper> keeperFor(const CallSettings& settings) {
    if (settings.saveDirectory.empty())
        return std::make_unique<StreamsInline>();
    try {
        return std::make_unique<StreamFiles>(settings.saveDirectory);
    } catch (const std::runtime_error& e) {
        throw std::runtime_error(std::string("nothing was sent: ") + e.what() + "; --save needs another");
    }
}

/// @return the exit code. What was asked for is done by now, whoever gets the answer.
int printReply(MRLMessageI& reply, StreamKeeper& keeper) {
    try {
        std::cout << JsonOutput(keeper).parameters(reply).dump(indentation, ' ', false,
                                                               Json::error_handler_t::replace)
                  << '\n';
    } catch (const HBLThrowable& e) {
        return tell(e, badReplyExit);
    } catch (const std::filesystem::filesystem_error& e) {
        std::cerr << "mrl: " << e.what() << '\n';
        return badReplyExit;
    }
    return std::cout.flush() ? int{e_Ok} : badReplyExit;
}

} // namespace

int call(const BuiltRequest& request, const CallSettings& settings) {
    const Toolkit toolkit;
    MRLPortTypeBinding& binding = *request.binding;
    setHeader(binding.getInputMessage(), settings);
    const std::unique_ptr<StreamKeeper> keeper = keeperFor(settings); // first: what it refuses is not sent
    const AttachedFiles attachments(settings.attachments, request.contentIds, settings.compress);
    if (settings.verbose)
        printEnvelope("request, in clear:", binding, binding.getInputMessage());
    try {
        submit(binding, attachments.list(), settings);
    } catch (MRLSOAPFaultException& e) {
        if (settings.verbose)
            std::cerr << "mrl: reply, as it was understood:\n"
                      << e.getSOAPFault().toString(e.getTavelHeader()) << '\n';
        printFault(e.getSOAPFault());
        return faultExit;
    } catch (const TavelTKException& e) {
        return tell(e, exitCodeOf(e));
    } catch (const HBLThrowable& e) {
        return cameWithTheReply(e) ? tell(e, badReplyExit) : tellCondition(e);
    }
    if (settings.verbose)
        printEnvelope("reply, as it was understood:", binding, binding.getOutputMessage());
    return printReply(binding.getOutputMessage(), *keeper);
}

} // namespace mrl::tool
