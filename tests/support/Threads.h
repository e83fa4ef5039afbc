#pragma once

#include <thread>
#include <vector>

namespace mrl::test {

/// Runs `step` with 0 to `count` - 1, each in a thread of its own, and waits for all.
template <class Step>
void inThreads(int count, const Step& step) {
    std::vector<std::jthread> threads;
    for (int number = 0; number < count; ++number)
        threads.emplace_back([&step, number] { step(number); });
}

} // namespace mrl::test
