#include "PLQStreams/PLQMemoryInputStream.h"

#include "HBLCore/HBLFailure.h"

#include <algorithm>
#include <cstring>

PLQMemoryInputStream::PLQMemoryInputStream(const char* bytes, std::size_t length)
    : m_next(bytes)
    , m_left(length) {
    HBL_ASSERT(bytes || length == 0);
}

PLQMemoryInputStream::~PLQMemoryInputStream() = default;

std::size_t PLQMemoryInputStream::read(char* buffer, std::size_t count) {
    if (count == 0)
        return 0;
    if (m_left == 0)
        return endOfStream;
    const std::size_t given = std::min(count, m_left);
    std::memcpy(buffer, m_next, given);
    m_next += given;
    m_left -= given;
    return given;
}
