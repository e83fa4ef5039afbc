#include "serialization/detail/GuardedInput.h"

#include "serialization/detail/Throw.h"

#include "HBLCore/HBLFailure.h"

#include <string>

namespace mrl::detail {

GuardedInput::~GuardedInput() = default;

std::size_t GuardedInput::read(char* buffer, std::size_t count) {
    if (m_failure) {
        return 0;
    }
    try {
        const std::size_t n = m_in.read(buffer, count);
        if (isEnd(n)) {
            return 0;
        }
        m_bytes += n;
        if (m_bytes > m_limits.totalBytes) {
            limitExceeded("bytes of a document", "totalBytes", m_limits.totalBytes);
        }
        if (m_bytes - m_bytesAtProgress > m_limits.markupLength) {
            limitExceeded("bytes of one piece of markup", "markupLength", m_limits.markupLength);
        }
        return n;
    } catch (...) {
        m_failure = std::current_exception();
        return 0;
    }
}

void limitExceeded(const char* what, const char* limit, std::uint64_t value) {
    const std::string text = std::string("The ") + what + " exceed the limit of " + std::to_string(value) +
                             " (MRLReaderLimits::" + limit + ").";
    throwFailure(HBL_HERE, "MRLSOAPMessageIDeserializer::parse", msg::malformedXml, text);
}

} // namespace mrl::detail
