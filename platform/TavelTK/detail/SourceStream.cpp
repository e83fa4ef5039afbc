#include "TavelTK/detail/SourceStream.h"

#include "HBLCore/HBLFailure.h"

namespace mrl::detail {

SourceStream::SourceStream(ByteSource& source, std::int64_t limit, std::function<void()> beyond)
    : m_source(source)
    , m_limit(limit)
    , m_beyond(std::move(beyond)) {}

std::size_t SourceStream::read(char* buffer, std::size_t count) {
    if (count == 0)
        return 0;
    return hblRethrowing("PLQInputStream::read", [&] {
        const std::size_t taken = m_source.read(buffer, count);
        m_total += static_cast<std::int64_t>(taken);
        if (m_limit != 0 && m_total > m_limit)
            m_beyond();
        return taken == 0 ? endOfStream : taken;
    });
}

} // namespace mrl::detail
