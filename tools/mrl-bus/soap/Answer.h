#pragma once

#include <string>
#include <vector>

namespace mrl::bus {

/// What travels beside an envelope; the envelope refers to it by "cid:" and the id.
struct Attachment {
    std::string id;
    std::string contentType;
    std::string bytes;       ///< as they go out
    bool compressed = false; ///< the bytes are a gzip stream
};

/// What goes back to a client.
struct Answer {
    bool fault = false;
    std::string envelope;
    std::vector<Attachment> attachments{};
};

} // namespace mrl::bus
