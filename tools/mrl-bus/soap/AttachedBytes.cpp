#include "soap/AttachedBytes.h"

#include "soap/Refusal.h"

#include "PLQStreams/PLQOutputStream.h"

#include <algorithm>

namespace mrl::bus {

thread_local std::uint64_t AttachedBytes::s_left = 0;

AttachedBytes::Budget::Budget(std::uint64_t bytes) {
    s_left = bytes;
}

AttachedBytes::Budget::~Budget() {
    s_left = 0;
}

MRL_AttachmentContainerI* AttachedBytes::create() {
    return new AttachedBytes;
}

void AttachedBytes::write(const char* data, std::size_t size) {
    if (size > s_left)
        throw Unreadable("the attachments are too large when they are unpacked; send less in one request");
    s_left -= size;
    m_content.append(data, size);
}

std::size_t AttachedBytes::Content::read(char* buffer, std::size_t count) {
    const std::size_t given = m_bytes.copy(buffer, count, m_position);
    m_position += given;
    return given == 0 ? endOfStream : given;
}

void AttachedBytes::Content::operator>>(PLQOutputStream& out) const {
    out.write(m_bytes.data(), m_bytes.size());
}

std::int64_t AttachedBytes::Content::seek(std::int64_t position, eMRL_Streamable_Seek origin) {
    const auto size = static_cast<std::int64_t>(m_bytes.size());
    const std::int64_t base = origin == eMRL_Streamable_SeekBegin     ? 0
                              : origin == eMRL_Streamable_SeekCurrent ? static_cast<std::int64_t>(m_position)
                                                                      : size;
    const std::int64_t wanted = base + std::clamp(position, -base, size);
    if (wanted != base + position || wanted > size)
        return -1;
    m_position = static_cast<std::size_t>(wanted);
    return wanted;
}

} // namespace mrl::bus
