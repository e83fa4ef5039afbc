#include "http/MultipartParts.h"

#include <algorithm>
#include <array>

namespace mrl::bus {

namespace {

constexpr std::size_t pieceSize = 16384;
constexpr std::size_t maxBoundary = 70;

std::string lower(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return result;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
    return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

} // namespace

MultipartParts::MultipartParts(PLQInputStream& body, const std::string& boundary)
    : m_body(body)
    , m_delimiter("\r\n--" + boundary) {
    const bool plain = std::ranges::all_of(boundary, [](char c) { return c >= ' ' && c <= '~'; });
    if (boundary.empty() || boundary.size() > maxBoundary || !plain)
        throw Unreadable("the boundary of a multipart body has 1 to 70 printable characters");
}

/// Reads one piece more.
bool MultipartParts::fill() {
    if (m_bodyEnded)
        return false;
    m_buffer.erase(0, m_begin);
    m_begin = 0;
    const std::size_t before = m_buffer.size();
    m_buffer.resize(before + pieceSize);
    const std::size_t got = m_body.read(m_buffer.data() + before, pieceSize);
    m_bodyEnded = PLQInputStream::isEnd(got);
    m_buffer.resize(before + (m_bodyEnded ? 0 : got));
    return !m_bodyEnded;
}

std::size_t MultipartParts::read(char* buffer, std::size_t count) {
    if (m_state != State::beforeFirst && m_state != State::inPart)
        return PLQInputStream::endOfStream;
    for (;;) {
        const std::size_t found = m_buffer.find(m_delimiter, m_begin);
        if (found == m_begin) {
            m_begin += m_delimiter.size();
            m_state = State::behindPart;
            return PLQInputStream::endOfStream;
        }
        const std::size_t held = m_buffer.size() - m_begin;
        const std::size_t safe = found != std::string::npos   ? found - m_begin
                                 : held >= m_delimiter.size() ? held - m_delimiter.size() + 1
                                                              : 0;
        if (safe > 0) {
            const std::size_t given = std::min(count, safe);
            m_buffer.copy(buffer, given, m_begin);
            m_begin += given;
            return given;
        }
        if (!fill())
            throw Unreadable("the multipart body ends without its closing delimiter");
    }
}

void MultipartParts::skipPart() {
    std::array<char, 4096> scratch;
    while (!PLQInputStream::isEnd(read(scratch.data(), scratch.size()))) {
    }
}

char MultipartParts::takeChar(const char* where) {
    if (m_begin == m_buffer.size() && !fill())
        throw Unreadable(std::string("the multipart body ends in ") + where);
    return m_buffer[m_begin++];
}

/// Up to CR LF, which goes, too.
std::string MultipartParts::takeLine() {
    std::string line;
    for (;;) {
        const char c = takeChar("the headers of a part");
        if (c == '\n' && line.ends_with('\r')) {
            line.pop_back();
            return line;
        }
        if (line.size() >= maxHeaderBytes)
            throw Unreadable("a part has more than " + std::to_string(maxHeaderBytes) + " bytes of headers");
        line += c;
    }
}

void MultipartParts::readHeaders() {
    m_headers.clear();
    std::size_t bytes = 0;
    for (std::string line = takeLine(); !line.empty(); line = takeLine()) {
        bytes += line.size();
        const std::size_t colon = line.find(':');
        const bool control = std::ranges::any_of(line, [](unsigned char c) { return c < ' ' && c != '\t'; });
        if (colon == std::string::npos || colon == 0 || control)
            throw Unreadable("a header of a part is not of the form 'Name: value'");
        if (bytes > maxHeaderBytes)
            throw Unreadable("a part has more than " + std::to_string(maxHeaderBytes) + " bytes of headers");
        const bool first = m_headers
                               .emplace(lower(trimmed(std::string_view(line).substr(0, colon))),
                                        trimmed(std::string_view(line).substr(colon + 1)))
                               .second;
        if (!first)
            throw Unreadable("a part has a header twice");
    }
}

bool MultipartParts::next() {
    if (m_state == State::beforeFirst || m_state == State::inPart)
        skipPart();
    if (m_state == State::behindAll)
        return false;
    while (m_buffer.size() - m_begin < 2 && fill()) {
    }
    if (std::string_view(m_buffer).substr(m_begin).starts_with("--")) {
        m_state = State::behindAll;
        return false;
    }
    if (!trimmed(takeLine()).empty())
        throw Unreadable("the boundary is part of the content");
    if (++m_parts > maxParts)
        throw Unreadable("there are more than " + std::to_string(maxParts) + " parts");
    readHeaders();
    m_state = State::inPart;
    return true;
}

} // namespace mrl::bus
