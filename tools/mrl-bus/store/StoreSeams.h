#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace mrl::bus {

/// What the store takes from outside; tests give fixed values.
struct StoreSeams {
    std::function<std::string()> now;    ///< UTC, as "2024-05-31T09:30:00.000Z"
    std::function<std::string()> newId;  ///< a new globally unique id, as "i" and 32 hexadecimal digits
    std::chrono::milliseconds timeLimit; ///< for one request

    /// The system clock, ids from the system's random source, 10 seconds.
    static StoreSeams ofSystem();
};

} // namespace mrl::bus
