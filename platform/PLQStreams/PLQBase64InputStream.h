#pragma once

#include "PLQStreams/PLQFilterInputStream.h"

#include <array>
#include <cstdint>
#include <memory>

/// Reads standard Base64 and gives the bytes behind it. White space may stand anywhere; anything else
/// that is not Base64 fails, and the message names the offset: a foreign character, padding in the
/// wrong place, data behind the padding, or an end within a group of four. Unused bits in front of
/// the padding are ignored. It reads ahead of what it hands out.
class MRL_EXPORT PLQBase64InputStream : public PLQFilterInputStream {
public:
    PLQBase64InputStream() = default;
    explicit PLQBase64InputStream(PLQInputStream& in);
    ~PLQBase64InputStream() override;

    using PLQFilterInputStream::read;

    /// @throws PLQStreamError when the data is not Base64; what came before it is handed out first.
    std::size_t read(char* buffer, std::size_t count) override;

    /// Reads a new text from `in`.
    void wrap(PLQInputStream& in) override;

private:
    bool fill();
    void decode();
    const char* objection(std::uint8_t kind) const;
    void take(std::uint8_t kind);

    struct Buffers;
    std::unique_ptr<Buffers> m_buffers; // made by the first read
    std::size_t m_begin = 0;            // decoded bytes not yet handed out: from here
    std::size_t m_end = 0;              // to here
    std::uint64_t m_offset = 0;         // of the next input character
    std::uint32_t m_bits = 0;           // six for each character of the open group
    unsigned m_inGroup = 0;             // characters of the open group, padding included
    unsigned m_padding = 0;             // "=" seen
};
