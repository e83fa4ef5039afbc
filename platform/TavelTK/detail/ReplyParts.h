#pragma once

#include "TavelTK/detail/MultipartReader.h"
#include "TavelTK/detail/PartDecoder.h"
#include "TavelTK/detail/ReplyBody.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

namespace mrl::detail {

/// The parts of a multipart reply: the envelope that its type names, then the others in their order, each
/// freed of its codings. What stands before the envelope is kept in memory, within "max-early-bytes".
class ReplyParts {
public:
    /// @param start content id of the envelope, with or without angle brackets; empty: the first part.
    ReplyParts(ReplyBody& body, Wire& wire, std::string_view boundary, std::string_view start);

    /// Goes to the envelope, once.
    ByteSource& envelope();

    /// Goes to the next attachment, past what is left of the part before it. @return false if none is left
    bool next();

    /// The current part: its header and its bytes; valid up to the next part.
    const Headers& headers() const { return m_headers; }
    ByteSource& source() { return *m_source; }
    /// Whether the part's own length says nothing about its bytes, and whether it was unpacked.
    bool isDecoded() const { return m_isDecoded; }
    bool isInflated() const { return m_isInflated; }

private:
    struct Early {
        Headers headers;
        std::string bytes;
    };
    bool nextPart();
    void keepPart();
    void open(Headers headers, std::unique_ptr<ByteSource> raw, bool isAttachment);
    RefuseCoding refusal() const;

    ReplyBody& m_body;
    Wire& m_wire;
    const std::string m_start;
    MultipartReader m_reader;
    std::unordered_set<std::size_t> m_ids; // hashes: a hostile peer's ids may be long
    std::deque<Early> m_early;
    std::int64_t m_earlyBytes = 0;
    Headers m_headers;
    std::unique_ptr<ByteSource> m_source;
    bool m_isDecoded = false;
    bool m_isInflated = false;
};

} // namespace mrl::detail
