#include "TavelTK/detail/ChunkedOutput.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace mrl::detail {

namespace {

constexpr std::size_t s_sizeLineRoom = 18; // sixteen digits, CRLF

} // namespace

ChunkedOutput::ChunkedOutput(Wire& wire, std::string_view head, std::size_t chunkSize)
    : m_wire(wire)
    , m_chunkSize(chunkSize) {
    m_buffer.reserve(head.size() + s_sizeLineRoom + chunkSize + 64);
    m_buffer.append(head);
    startChunk();
}

void ChunkedOutput::startChunk() {
    m_sizeLine = m_buffer.size();
    m_buffer.append(s_sizeLineRoom, ' ');
}

std::size_t ChunkedOutput::chunkBytes() const {
    return m_buffer.size() - m_sizeLine - s_sizeLineRoom;
}

std::size_t ChunkedOutput::endChunk() {
    char line[s_sizeLineRoom];
    char* end = std::to_chars(line, line + sizeof line, chunkBytes(), 16).ptr;
    *end++ = '\r';
    *end++ = '\n';
    const auto length = static_cast<std::size_t>(end - line);
    // The size line stands right before its chunk; the head, if there is one, moves up to it.
    const std::size_t gap = s_sizeLineRoom - length;
    std::memmove(m_buffer.data() + gap, m_buffer.data(), m_sizeLine);
    std::memcpy(m_buffer.data() + gap + m_sizeLine, line, length);
    m_buffer.append("\r\n");
    return gap;
}

void ChunkedOutput::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t count = std::min(bytes.size(), m_chunkSize - chunkBytes());
        m_buffer.append(bytes.substr(0, count));
        bytes.remove_prefix(count);
        if (chunkBytes() < m_chunkSize)
            continue;
        const std::size_t begin = endChunk();
        m_wire.send(std::string_view(m_buffer).substr(begin));
        m_buffer.clear();
        startChunk();
    }
}

void ChunkedOutput::finish() {
    std::size_t begin = 0;
    if (chunkBytes() == 0)
        m_buffer.resize(m_sizeLine);
    else
        begin = endChunk();
    m_buffer.append("0\r\n\r\n");
    m_wire.send(std::string_view(m_buffer).substr(begin));
}

} // namespace mrl::detail
