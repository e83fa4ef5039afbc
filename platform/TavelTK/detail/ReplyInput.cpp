#include "TavelTK/detail/ReplyInput.h"

#include <algorithm>
#include <cstring>

namespace mrl::detail {

bool ReplyInput::fill() {
    m_begin = 0;
    m_end = m_wire.receive(m_buffer.data(), m_buffer.size());
    return m_end != 0;
}

bool ReplyInput::comesWithin(milliseconds time) {
    if (m_begin != m_end)
        return true;
    m_begin = m_end = 0;
    m_end = m_wire.receive(m_buffer.data(), m_buffer.size(), time).value_or(0);
    return m_end != 0;
}

std::size_t ReplyInput::read(char* buffer, std::size_t size) {
    if (m_begin == m_end) {
        if (size >= m_buffer.size())
            return m_wire.receive(buffer, size);
        if (!fill())
            return 0;
    }
    const std::size_t count = std::min(size, m_end - m_begin);
    std::memcpy(buffer, m_buffer.data() + m_begin, count);
    m_begin += count;
    return count;
}

std::string ReplyInput::readLine(std::int64_t& budget, std::string_view what) {
    std::string line;
    for (;;) {
        if (m_begin == m_end && !fill())
            m_wire.broke("it was closed within the " + std::string(what));
        const std::string_view there(m_buffer.data() + m_begin, m_end - m_begin);
        const std::size_t newline = there.find('\n');
        const std::size_t count = newline == std::string_view::npos ? there.size() : newline + 1;
        budget -= static_cast<std::int64_t>(count);
        if (budget < 0)
            m_wire.fail(TavelTKError::replyTooLarge, TavelTKPhase::readReply,
                        "the " + std::string(what) + " is longer than its limit");
        line.append(there.substr(0, count));
        m_begin += count;
        if (newline != std::string_view::npos)
            break;
    }
    line.pop_back();
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

} // namespace mrl::detail
