#pragma once

#include "TavelTK/detail/Headers.h"
#include "TavelTK/detail/ReplyInput.h"

#include <cstdint>
#include <string>

namespace mrl::detail {

/// Status line and header of a reply.
struct ReplyHead {
    int minorVersion = 1;
    int status = 0;
    std::string reason;
    Headers headers;

    /// Reads them, past interim replies (status 1xx), within "max-header-bytes".
    /// @throws TavelTKException badHttpReply, replyTooLarge, connectionBroke and what Wire::receive throws.
    static ReplyHead read(ReplyInput& in);

    /// Reads one, interim or not. Its bytes are taken off `budget`.
    static ReplyHead readOne(ReplyInput& in, std::int64_t& budget);

    bool isInterim() const { return status < 200; }

    /// Whether the peer leaves the connection open after this reply.
    bool keepsConnection() const;
};

} // namespace mrl::detail
