#pragma once

#include <cstddef>

namespace mrl::test {

/// Allocations by operator new of this thread: how many are alive, and which of them is to fail. The
/// operators stand in FailingAllocations.cpp; other threads and malloc are left alone.
class FailingAllocations {
public:
    /// Makes the n-th allocation of this thread from now on fail, once; 0 for none.
    explicit FailingAllocations(long n) { t_left = n; }
    ~FailingAllocations() { t_left = 0; }
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    /// Whether the allocation was reached; told before the object ends.
    static bool happened() { return t_left <= 0; }
    /// Blocks this thread made less those it freed.
    static long alive() { return t_alive; }

    static inline thread_local long t_left = 0;
    static inline thread_local long t_alive = 0;
};

/// For what belongs to the test: allocations in here neither fail nor count as steps.
class Aside {
public:
    Aside()
        : m_left(FailingAllocations::t_left) {
        FailingAllocations::t_left = 0;
    }
    ~Aside() { FailingAllocations::t_left = m_left; }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

private:
    long m_left;
};

} // namespace mrl::test
