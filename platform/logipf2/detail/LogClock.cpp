#include "logipf2/detail/LogClock.h"

#include <atomic>
#include <ctime>

namespace mrl::detail {

namespace {

std::int64_t wallMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::int64_t{now.tv_sec} * 1'000'000 + now.tv_nsec / 1'000;
}

std::int64_t monotonicMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now); // a fifth of the price of the fine one
    return std::int64_t{now.tv_sec} * 1'000 + now.tv_nsec / 1'000'000;
}

constexpr LogClock SYSTEM = {&wallMicroseconds, &monotonicMilliseconds};
constinit std::atomic<const LogClock*> s_clock = &SYSTEM;

} // namespace

const LogClock& logClock() noexcept {
    return *s_clock.load(std::memory_order_acquire);
}

void replaceLogClock(const LogClock* clock) noexcept {
    s_clock.store(clock == nullptr ? &SYSTEM : clock, std::memory_order_release);
}

} // namespace mrl::detail
