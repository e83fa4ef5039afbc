#include "HBLIDOM/detail/DocumentInput.h"

namespace mrl::detail {

DocumentInput::~DocumentInput() = default;

std::size_t DocumentInput::read(char* buffer, std::size_t count) {
    if (m_failure || m_isTooLong) {
        return 0;
    }
    try {
        const std::size_t n = m_in.read(buffer, count);
        if (isEnd(n)) {
            return 0;
        }
        m_bytes += n;
        m_isTooLong = m_bytes > m_limits.totalBytes;
        return m_isTooLong ? 0 : n;
    } catch (...) {
        m_failure = std::current_exception();
        return 0;
    }
}

void DocumentInput::rethrowFailure() const {
    if (m_failure) {
        std::rethrow_exception(m_failure);
    }
}

} // namespace mrl::detail
