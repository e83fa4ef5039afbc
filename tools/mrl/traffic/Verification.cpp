#include "traffic/Verification.h"

#include "data/CatalogueData.h"
#include "traffic/Envelope.h"

#include <algorithm>
#include <array>
#include <map>

namespace mrl::tool {

namespace fs = std::filesystem;

namespace {

bool isDenial(const Envelope& reply) {
    constexpr std::array<std::string_view, 4> codes = {"cmNoRead", "cmNoWrite", "cmNoPermission",
                                                       "cmPropertyNoPermission"};
    return std::ranges::find(codes, reply.faultCode) != codes.end();
}

/// The operation of a service that has this request message; null when the catalogue has none.
const OperationRow* operationOf(const RecordedCall& call) {
    for (const ServiceRow& service : services())
        if (call.service == service.name)
            for (const OperationRow& operation : service.operations)
                if (call.requestMessage == operation.request)
                    return &operation;
    return nullptr;
}

std::string count(std::size_t number, const std::string& what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

class Verifier {
public:
    explicit Verifier(const Recording& recording)
        : m_recording(recording) {}

    std::vector<Finding> run() {
        if (m_recording.calls.empty())
            add(Finding::problem, m_recording.directory.string(), "there is no call in it");
        numbers();
        for (const RecordedCall& call : m_recording.calls)
            check(call);
        for (const fs::path& path : m_recording.strangers)
            add(Finding::problem, path.filename().string(),
                fs::is_symlink(fs::symlink_status(path))
                    ? "this is a link, which no session makes; it was not followed"
                    : "no session gives a file this name");
        return std::move(m_findings);
    }

private:
    void add(Finding::Weight weight, const std::string& place, std::string words) {
        m_findings.push_back({weight, place, std::move(words)});
    }

    void numbers() {
        std::map<std::string, unsigned> next;
        for (const RecordedCall& call : m_recording.calls) {
            unsigned& expected = next[call.session + "/" + call.service];
            if (call.number > expected)
                add(Finding::problem, call.id(),
                    call.number == expected + 1
                        ? "the call before it, number " + std::to_string(expected) + ", is missing"
                        : "the calls " + std::to_string(expected) + " to " + std::to_string(call.number - 1) +
                              " before it are missing");
            expected = call.number + 1;
        }
    }

    void check(const RecordedCall& call) {
        const Envelope request = Envelope::read(call.request);
        const Envelope reply = Envelope::read(call.reply);
        names(call, request, reply);
        checkRequest(call, request);
        checkReply(call, reply);
        gaps(call, call.requestAttachments, ".attachment");
        gaps(call, call.replyAttachments, "_attachment");
        if (request.kind == Envelope::sound && request.references > call.requestAttachments.size())
            add(Finding::problem, call.id(),
                "the request refers to " + count(request.references, "attachment") + ", and has " +
                    std::to_string(call.requestAttachments.size()));
        if (reply.kind == Envelope::sound && reply.references > call.replyAttachments.size())
            add(Finding::problem, call.id(),
                "the reply refers to " + count(reply.references, "attachment") + ", and has " +
                    std::to_string(call.replyAttachments.size()));
        if (!call.replyAttachments.empty())
            add(Finding::remark, call.id(),
                "the reply came with " + count(call.replyAttachments.size(), "attachment") +
                    ". Played back, it comes without: what they belong to stays empty");
        denial(call, request, reply);
    }

    void names(const RecordedCall& call, const Envelope& request, const Envelope& reply) {
        const OperationRow* operation = operationOf(call);
        if (!call.request.empty() && operation == nullptr) {
            add(Finding::problem, call.id(),
                "the catalogue has no message " + call.requestMessage + " of this service");
            return;
        }
        if (operation == nullptr)
            return;
        if (request.kind == Envelope::sound && request.operation != operation->name)
            add(Finding::problem, call.id(),
                "the request is of the operation '" + request.operation + "', its name says " +
                    operation->name);
        if (!call.reply.empty() && reply.kind != Envelope::absent && call.replyMessage != operation->reply)
            add(Finding::problem, call.id(),
                "the reply " + call.replyMessage + " belongs to another operation than the request");
    }

    void checkRequest(const RecordedCall& call, const Envelope& request) {
        switch (request.kind) {
        case Envelope::absent: add(Finding::problem, call.id(), "the request file is missing"); break;
        case Envelope::empty:
            add(Finding::problem, call.id(), "the request is empty: the call failed before it was sent");
            break;
        case Envelope::encrypted:
            add(Finding::remark, call.id(),
                "the request is encrypted (a trusted call), so nobody can look into it");
            break;
        case Envelope::malformed:
        case Envelope::foreign:
            add(Finding::problem, call.id(), "the request cannot be read: " + request.problem);
            break;
        case Envelope::sound:
            if (request.content.isNull() != 0)
                add(Finding::problem, call.id(), "the body of the request is empty");
            break;
        }
    }

    void checkReply(const RecordedCall& call, const Envelope& reply) {
        switch (reply.kind) {
        case Envelope::absent:
            add(Finding::problem, call.id(),
                "there is no reply: the call failed while it was sent, and cannot be played back");
            break;
        case Envelope::empty:
            add(Finding::problem, call.id(),
                "the reply is empty: the connection broke off. A session that does not record would have "
                "sent the call again; while recording no call is repeated");
            break;
        case Envelope::encrypted: add(Finding::problem, call.id(), "the reply is no XML"); break;
        case Envelope::malformed:
        case Envelope::foreign:
            add(Finding::problem, call.id(), "the reply cannot be read: " + reply.problem);
            break;
        case Envelope::sound: break;
        }
    }

    void gaps(const RecordedCall& call, const std::vector<fs::path>& paths, const std::string& mark) {
        for (std::size_t i = 0; i < paths.size(); ++i) {
            RecordedFileName name;
            if (name.parse(paths[i].filename().native()) && name.attachment != i + 1) {
                add(Finding::problem, call.id(),
                    "the file of attachment " + std::to_string(i + 1) + " is missing ('" + mark +
                        (i == 0 ? "" : std::to_string(i + 1)) + "')");
                return;
            }
        }
    }

    /// A denial that was answered by sending the call once more, encrypted.
    void denial(const RecordedCall& call, const Envelope& request, const Envelope& reply) {
        if (request.kind == Envelope::encrypted && m_denied == call.session + "/" + call.service)
            add(Finding::remark, call.id(),
                "the call before it was denied and sent again, encrypted. Played back, it is refused: a "
                "session never sends again what it plays back");
        m_denied = isDenial(reply) ? call.session + "/" + call.service : std::string();
    }

    const Recording& m_recording;
    std::vector<Finding> m_findings;
    std::string m_denied;
};

} // namespace

std::vector<Finding> verify(const Recording& recording) {
    return Verifier(recording).run();
}

} // namespace mrl::tool
