#pragma once

#include <chrono>
#include <cstdint>

namespace mrl::detail {

/// The second it is now. All of the component asks here: the clock of std::time is another one that ticks
/// milliseconds later, and by it a document could have been made a second before what came ahead of it.
inline std::chrono::sys_seconds currentSecond() {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

/// The same, counted from 1970.
inline std::int64_t secondsSince1970() {
    return currentSecond().time_since_epoch().count();
}

} // namespace mrl::detail
