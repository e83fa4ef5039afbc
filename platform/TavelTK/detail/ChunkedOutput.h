#pragma once

#include "TavelTK/detail/Wire.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace mrl::detail {

/// Sends the body of a request in chunks of one size while it is being written. The head of the request
/// goes out together with the first chunk.
class ChunkedOutput {
public:
    /// @param head the whole head with the empty line at its end; empty if it has been sent already.
    ChunkedOutput(Wire& wire, std::string_view head, std::size_t chunkSize);

    void write(std::string_view bytes);
    /// Sends what is left and the last chunk.
    void finish();

private:
    void startChunk();
    std::size_t chunkBytes() const;
    /// Completes the chunk. @return where in the buffer begins what is to be sent
    std::size_t endChunk();

    Wire& m_wire;
    const std::size_t m_chunkSize;
    std::string m_buffer;       // head (at first, if any), room for the size line, bytes of the chunk
    std::size_t m_sizeLine = 0; // where that room is
};

} // namespace mrl::detail
