#pragma once

#include <cstdint>

namespace mrl::detail {

/// The time as logging sees it; tests put their own in place.
struct LogClock {
    std::int64_t (*wallMicroseconds)();      ///< since 1970, UTC
    std::int64_t (*monotonicMilliseconds)(); ///< from anywhere; read often, so it must be cheap
};

/// The clock in use.
const LogClock& logClock() noexcept;

/// Puts another clock in place, for tests; it must outlive its use. Null is the system's.
void replaceLogClock(const LogClock* clock) noexcept;

} // namespace mrl::detail
