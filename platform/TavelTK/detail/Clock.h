#pragma once

#include <chrono>

namespace mrl::detail {

using TimePoint = std::chrono::steady_clock::time_point;
using std::chrono::milliseconds;

/// Where time limits read the time; tests put their own in its place.
class Clock {
public:
    virtual ~Clock() = default;
    virtual TimePoint now() const = 0;

    /// The clock of the machine that never goes back.
    static const Clock& steady();
};

} // namespace mrl::detail
