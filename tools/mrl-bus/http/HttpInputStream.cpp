#include "http/HttpInputStream.h"

#include <algorithm>
#include <array>

namespace mrl::bus {

HttpInputStream::HttpInputStream(std::istream& body, std::uint64_t maxBytes,
                                 std::chrono::steady_clock::time_point deadline)
    : m_body(body)
    , m_left(maxBytes)
    , m_deadline(deadline) {}

std::size_t HttpInputStream::read(char* buffer, std::size_t count) {
    if (m_exceeded)
        return endOfStream;
    // One byte more than allowed is asked for: only its arrival tells too much from just enough.
    const auto most = static_cast<std::size_t>(std::min<std::uint64_t>(count, m_left + 1));
    m_body.read(buffer, static_cast<std::streamsize>(most));
    const auto got = static_cast<std::uint64_t>(m_body.gcount());
    if (got == 0)
        return endOfStream;
    if (got > m_left || std::chrono::steady_clock::now() > m_deadline) {
        m_exceeded = true;
        return endOfStream;
    }
    m_left -= got;
    return static_cast<std::size_t>(got);
}

bool HttpInputStream::drain(std::uint64_t maxBytes) {
    std::array<char, 16384> scratch;
    while (maxBytes > 0 && std::chrono::steady_clock::now() <= m_deadline) {
        m_body.read(scratch.data(),
                    static_cast<std::streamsize>(std::min<std::uint64_t>(scratch.size(), maxBytes)));
        if (m_body.gcount() == 0)
            return m_body.eof();
        maxBytes -= static_cast<std::uint64_t>(m_body.gcount());
    }
    return false;
}

} // namespace mrl::bus
