#pragma once

#include "soap/ContentManager.h"

#include <string>

class PLQInputStream;

namespace mrl::bus {

/// What goes back to a client.
struct Answer {
    bool fault = false;
    std::string envelope;
};

/// From the envelope of a request to the envelope of its answer. Whatever comes in, something sensible
/// goes out. Any thread may call.
class RequestProcessor {
public:
    explicit RequestProcessor(ContentStore& store)
        : m_contentManager(store) {}

    /// Reads the envelope from `in` to its end.
    Answer process(PLQInputStream& in);

private:
    std::string perform(PLQInputStream& in);

    ContentManager m_contentManager;
};

} // namespace mrl::bus
