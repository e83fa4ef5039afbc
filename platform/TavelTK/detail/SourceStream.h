#pragma once

#include "PLQStreams/PLQInputStream.h"
#include "TavelTK/detail/ByteSource.h"

#include <cstdint>
#include <functional>

namespace mrl::detail {

/// The stream that a reader hands out: the bytes of one source up to its end. Closing it gives nothing up;
/// the reader does that when the envelope or attachment is closed.
class SourceStream : public PLQInputStream {
public:
    using PLQInputStream::read;

    /// @param limit bytes that may be read, 0: any number. @param beyond throws when there are more.
    SourceStream(ByteSource& source, std::int64_t limit, std::function<void()> beyond);

    std::size_t read(char* buffer, std::size_t count) override;

private:
    ByteSource& m_source;
    std::int64_t m_limit;
    std::int64_t m_total = 0;
    std::function<void()> m_beyond;
};

} // namespace mrl::detail
