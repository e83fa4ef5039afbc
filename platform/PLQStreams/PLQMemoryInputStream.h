#pragma once

#include "PLQStreams/PLQInputStream.h"

/// Reads bytes of somebody else's, which must live as long as the stream is read.
class MRL_EXPORT PLQMemoryInputStream : public PLQInputStream {
public:
    /// @throws HBLAssertError when `bytes` is null and `length` is not 0.
    PLQMemoryInputStream(const char* bytes, std::size_t length);
    ~PLQMemoryInputStream() override;

    using PLQInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override;

private:
    const char* m_next; // borrowed
    std::size_t m_left;
};
