#include "TavelTK/detail/Clock.h"

namespace mrl::detail {

namespace {

class SteadyClock : public Clock {
public:
    TimePoint now() const override { return std::chrono::steady_clock::now(); }
};

} // namespace

const Clock& Clock::steady() {
    static const SteadyClock s_clock;
    return s_clock;
}

} // namespace mrl::detail
