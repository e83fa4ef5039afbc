#pragma once

#include "TavelTK/detail/Headers.h"
#include "TavelTK/detail/ReplyInput.h"

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

    /// Whether the peer leaves the connection open after this reply.
    bool keepsConnection() const;
};

} // namespace mrl::detail
