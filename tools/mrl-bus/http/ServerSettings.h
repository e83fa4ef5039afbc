#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace mrl::bus {

/// How the bus listens, and what it takes from a client.
struct ServerSettings {
    std::string host = "127.0.0.1";
    std::uint16_t port = 9300; ///< 0 for any free one
    int threads = 16;          ///< connections served at a time
    int queue = 64;            ///< connections that may wait for one to end; others are turned away
    std::uint64_t maxBodyBytes = 64U << 20U;
    std::chrono::seconds keepAliveTimeout{5}; ///< for the next request on a connection
    std::chrono::seconds idleTimeout{15};     ///< for the next bytes of a request
    std::chrono::seconds requestTimeout{60};  ///< for the whole body of a request
};

} // namespace mrl::bus
