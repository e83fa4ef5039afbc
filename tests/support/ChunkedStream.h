#pragma once

#include "PLQStreams/PLQMemoryInputStream.h"

#include <algorithm>
#include <string_view>

namespace mrl::test {

/// Gives a document in pieces of at most `chunk` bytes.
class ChunkedStream : public PLQMemoryInputStream {
public:
    ChunkedStream(std::string_view document, std::size_t chunk)
        : PLQMemoryInputStream(document.data(), document.size())
        , m_chunk(chunk) {}
    using PLQMemoryInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override {
        return PLQMemoryInputStream::read(buffer, std::min(count, m_chunk));
    }

private:
    std::size_t m_chunk;
};

} // namespace mrl::test
