#include "TavelTK/detail/ReplyBody.h"

#include "TavelTK/detail/Failure.h"

#include <algorithm>
#include <charconv>

namespace mrl::detail {

namespace {

constexpr std::int64_t s_maxChunkLine = 4096;

[[noreturn]] void refuse(ReplyInput& in, const std::string& cause) {
    in.wire().fail(TavelTKError::badHttpReply, TavelTKPhase::readReply, cause);
}

} // namespace

ReplyBody::Framing ReplyBody::framing(ReplyInput& in, const Headers& headers) {
    const std::size_t lengths = headers.count("Content-Length");
    const std::string* coding = headers.find("Transfer-Encoding");
    // Two statements that differ are how one message is smuggled inside another: no guessing here.
    if (lengths > 1 || (lengths == 1 && coding) || headers.count("Transfer-Encoding") > 1)
        refuse(in, "the header states the length of the body more than once");
    if (coding && !sameText(*coding, "chunked"))
        refuse(in, "the transfer encoding is '" + printable(*coding) + "'; only chunked is taken");
    if (coding)
        return Framing::chunks;
    return lengths == 1 ? Framing::length : Framing::untilClose;
}

ReplyBody::ReplyBody(ReplyInput& in, const ReplyHead& head)
    : m_in(in)
    , m_framing(framing(in, head.headers)) {
    if (m_framing != Framing::length)
        return;
    const std::string& text = *head.headers.find("Content-Length");
    m_stated = m_left = parseLength(text);
    if (m_stated < 0)
        refuse(in, "the content length is '" + printable(text) + "'");
    const std::int64_t limit = in.wire().options().maxReplyBytes;
    if (limit != 0 && m_stated > limit)
        in.wire().fail(TavelTKError::replyTooLarge, TavelTKPhase::readReply,
                       "it states " + text + " bytes, more than " + std::to_string(limit) +
                           " (max-reply-bytes)");
    m_atEnd = m_left == 0;
}

bool ReplyBody::nextChunk() {
    std::int64_t budget = s_maxChunkLine;
    if (!m_firstChunk && !m_in.readLine(budget, "end of a chunk").empty())
        refuse(m_in, "a chunk is longer than it states");
    m_firstChunk = false;

    const std::string line = m_in.readLine(budget, "size of a chunk");
    const char* const end = line.data() + std::min(line.find_first_of("; \t"), line.size());
    std::uint64_t size = 0;
    const auto [stop, error] = std::from_chars(line.data(), end, size, 16);
    if (error != std::errc{} || stop != end || size > INT64_MAX)
        refuse(m_in, "the size of a chunk is '" + printable(line) + "'");
    m_left = static_cast<std::int64_t>(size);
    if (m_left == 0)
        skipTrailer();
    return m_left != 0;
}

void ReplyBody::skipTrailer() {
    std::int64_t budget = m_in.wire().options().maxHeaderBytes;
    while (!m_in.readLine(budget, "reply trailer").empty()) {
    }
}

std::size_t ReplyBody::read(char* buffer, std::size_t size) {
    if (m_atEnd)
        return 0;
    if (m_framing == Framing::chunks && m_left == 0 && !nextChunk()) {
        m_atEnd = true;
        return 0;
    }
    if (m_framing != Framing::untilClose)
        size = static_cast<std::size_t>(std::min<std::uint64_t>(size, static_cast<std::uint64_t>(m_left)));

    const std::size_t count = m_in.read(buffer, size);
    if (count == 0) {
        if (m_framing == Framing::length)
            m_in.wire().broke("it was closed after " + std::to_string(m_total) + " of " +
                              std::to_string(m_stated) + " bytes");
        if (m_framing == Framing::chunks)
            m_in.wire().broke("it was closed within a chunk, after " + std::to_string(m_total) + " bytes");
        if (!m_in.wire().cut().empty())
            m_in.wire().broke(m_in.wire().cut());
        m_atEnd = true;
        return 0;
    }
    m_total += static_cast<std::int64_t>(count);
    m_left -= m_framing == Framing::untilClose ? 0 : static_cast<std::int64_t>(count);
    m_atEnd = m_framing == Framing::length && m_left == 0;
    const std::int64_t limit = m_in.wire().options().maxReplyBytes;
    if (limit != 0 && m_total > limit)
        m_in.wire().fail(TavelTKError::replyTooLarge, TavelTKPhase::readReply,
                         "the body is longer than " + std::to_string(limit) + " bytes (max-reply-bytes)");
    return count;
}

} // namespace mrl::detail
