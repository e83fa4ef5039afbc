#pragma once

#include "TavelTK/detail/ByteSource.h"
#include "TavelTK/detail/ReplyHead.h"

#include <cstdint>
#include <string>

namespace mrl::detail {

/// The body of a reply, freed of its framing: by length, in chunks, or up to the end of the connection.
class ReplyBody : public ByteSource {
public:
    /// @throws TavelTKException badHttpReply when the header states the framing wrongly or twice;
    ///         replyTooLarge when it states more than "max-reply-bytes".
    ReplyBody(ReplyInput& in, const ReplyHead& head);

    /// @throws TavelTKException connectionBroke when the body ends too early; badHttpReply for a bad chunk;
    ///         replyTooLarge beyond "max-reply-bytes".
    std::size_t read(char* buffer, std::size_t size) override;

    bool atEnd() const { return m_atEnd; }
    /// Whether the end of the connection is the end of the body, so that a loss may not be told from it.
    bool endsWithConnection() const { return m_framing == Framing::untilClose; }
    /// The stated length; -1 if none is stated.
    std::int64_t statedLength() const { return m_stated; }

private:
    enum class Framing { length, chunks, untilClose };
    static Framing framing(ReplyInput& in, const Headers& headers);
    bool nextChunk();
    void skipTrailer();

    ReplyInput& m_in;
    Framing m_framing;
    bool m_atEnd = false;
    bool m_firstChunk = true;
    std::int64_t m_stated = -1;
    std::int64_t m_left = 0;  // of the body or of the chunk
    std::int64_t m_total = 0; // read so far
};

} // namespace mrl::detail
