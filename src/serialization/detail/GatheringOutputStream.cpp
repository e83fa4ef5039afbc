#include "serialization/detail/GatheringOutputStream.h"

#include <utility>

namespace mrl::detail {

GatheringOutputStream::~GatheringOutputStream() {
    try {
        finish();
    } catch (...) { // the failure that led here is the one to report
    }
}

void GatheringOutputStream::finish() {
    const std::size_t held = std::exchange(m_size, 0);
    if (held != 0) {
        m_downstream.write(m_buffer.data(), held);
    }
}

void GatheringOutputStream::flush() {
    finish();
    m_downstream.flush();
}

void GatheringOutputStream::writeLarge(const char* data, std::size_t length) {
    finish();
    if (length >= m_buffer.size()) {
        m_downstream.write(data, length);
    } else {
        std::memcpy(m_buffer.data(), data, length);
        m_size = length;
    }
}

} // namespace mrl::detail
