#include "TavelTK/detail/ReplyHead.h"

#include "TavelTK/detail/Failure.h"

namespace mrl::detail {

namespace {

[[noreturn]] void refuse(ReplyInput& in, const std::string& what, std::string_view line) {
    in.wire().fail(TavelTKError::badHttpReply, TavelTKPhase::readReply, what + " '" + printable(line) + "'");
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// "HTTP/1.1 200 OK"; the reason may be missing.
ReplyHead parseStatusLine(ReplyInput& in, std::string_view line) {
    ReplyHead head;
    const bool wellFormed =
        line.size() >= 12 && (line.starts_with("HTTP/1.1 ") || line.starts_with("HTTP/1.0 ")) &&
        isDigit(line[9]) && isDigit(line[10]) && isDigit(line[11]) && (line.size() == 12 || line[12] == ' ');
    if (!wellFormed)
        refuse(in, "the status line is", line);
    head.minorVersion = line[7] - '0';
    head.status = (line[9] - '0') * 100 + (line[10] - '0') * 10 + (line[11] - '0');
    head.reason = line.substr(std::min<std::size_t>(line.size(), 13));
    return head;
}

} // namespace

ReplyHead ReplyHead::readOne(ReplyInput& in, std::int64_t& budget) {
    ReplyHead head = parseStatusLine(in, in.readLine(budget, "reply header"));
    for (;;) {
        const std::string line = in.readLine(budget, "reply header");
        if (line.empty())
            break;
        if (!head.headers.add(line))
            refuse(in, "a header line is", line);
    }
    if (head.status == 101)
        refuse(in, "the status is", "101 " + head.reason);
    if (head.status < 100)
        refuse(in, "the status is", std::to_string(head.status));
    return head;
}

ReplyHead ReplyHead::read(ReplyInput& in) {
    std::int64_t budget = in.wire().options().maxHeaderBytes;
    for (;;)
        if (ReplyHead head = readOne(in, budget); !head.isInterim())
            return head;
}

bool ReplyHead::keepsConnection() const {
    if (headers.hasToken("Connection", "close"))
        return false;
    return minorVersion == 1 || headers.hasToken("Connection", "keep-alive");
}

} // namespace mrl::detail
