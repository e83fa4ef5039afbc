#include "traffic/Listing.h"

#include "traffic/CanonicalText.h"
#include "traffic/Envelope.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <utility>

namespace mrl::tool {

namespace fs = std::filesystem;

namespace {

std::string outcome(const Envelope& reply) {
    switch (reply.kind) {
    case Envelope::absent: return "no reply";
    case Envelope::empty: return "empty reply";
    case Envelope::encrypted:
    case Envelope::malformed:
    case Envelope::foreign: return "unreadable reply";
    case Envelope::sound: break;
    }
    if (!reply.isFault())
        return "ok";
    return "fault " + (reply.faultCode.empty() ? reply.faultText : reply.faultCode);
}

std::string sizeOf(const Envelope& envelope) {
    return envelope.kind == Envelope::absent ? "-" : std::to_string(envelope.size);
}

/// What kind of data begins like this.
std::string kindOf(std::string_view bytes) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 5> signatures = {{
        {"\x1f\x8b", "gzip"},
        {"%PDF", "PDF"},
        {"PK\x03\x04", "ZIP"},
        {"\x89PNG", "PNG"},
        {"<", "XML or HTML"},
    }};
    for (const auto& [signature, kind] : signatures)
        if (bytes.starts_with(signature))
            return std::string(kind);
    return bytes.empty() ? "empty" : bytes.find('\0') == bytes.npos ? "text" : "binary";
}

void printEnvelope(const fs::path& path, std::ostream& out) {
    const Envelope envelope = Envelope::read(path);
    switch (envelope.kind) {
    case Envelope::absent: out << "  (there is no file)\n"; return;
    case Envelope::empty: out << "  (empty)\n"; return;
    case Envelope::encrypted: out << "  (encrypted, " << envelope.size << " bytes: a trusted call)\n"; return;
    case Envelope::malformed: out << "  (not well-formed: " << printable(envelope.problem) << ")\n"; return;
    case Envelope::foreign:
    case Envelope::sound: break;
    }
    for (const std::string& line : canonicalLines(envelope.document, nullptr))
        out << "  " << printable(line) << '\n';
}

void printMessage(const char* what, const fs::path& path, const std::vector<fs::path>& attachments,
                  std::ostream& out) {
    out << what << ' ' << printable(path.filename().string()) << '\n';
    printEnvelope(path, out);
    for (const fs::path& attachment : attachments) {
        const std::string bytes = bytesOf(attachment);
        out << "  attachment " << printable(attachment.filename().string()) << ": " << bytes.size()
            << " bytes, " << kindOf(bytes) << '\n';
    }
}

} // namespace

void printList(const Recording& recording, std::ostream& out) {
    struct Row {
        std::array<std::string, 6> cells;
    };
    std::vector<Row> rows = {{{"CALL", "OPERATION", "OUTCOME", "SENT", "RECEIVED", "ATTACHMENTS"}}};
    for (const RecordedCall& call : recording.calls) {
        const Envelope request = Envelope::read(call.request);
        const Envelope reply = Envelope::read(call.reply);
        const std::string operation = request.kind == Envelope::encrypted ? "(encrypted)" : request.operation;
        rows.push_back({{call.id(), operation.empty() ? call.requestMessage : operation, outcome(reply),
                         sizeOf(request), sizeOf(reply),
                         std::to_string(call.requestAttachments.size()) + " sent, " +
                             std::to_string(call.replyAttachments.size()) + " received"}});
    }
    std::array<std::size_t, 6> widths{};
    for (Row& row : rows)
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            row.cells[i] = printable(row.cells[i]);
            widths[i] = std::max(widths[i], row.cells[i].size());
        }
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            const std::string padding(widths[i] - row.cells[i].size(), ' ');
            const bool isNumber = i == 3 || i == 4;
            line += (i == 0 ? "" : "  ") + (isNumber ? padding + row.cells[i] : row.cells[i] + padding);
        }
        out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
    for (const std::string& session : recording.silentSessions)
        out << printable(session) << ": a session that made no call\n";
}

void printCall(const RecordedCall& call, Shown shown, std::ostream& out) {
    if (shown != Shown::reply)
        printMessage("request", call.request, call.requestAttachments, out);
    if (shown != Shown::request)
        printMessage("reply", call.reply, call.replyAttachments, out);
}

} // namespace mrl::tool
