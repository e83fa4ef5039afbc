#pragma once

namespace mrl::test {

/// Calls of the system that work on files, made by this thread: the n-th from now on fails once, a write to
/// the file for want of room, with half of its bytes written. The functions stand in FailingCalls.cpp in
/// front of those of the system's library; other threads, and sockets, are left alone.
class FailingCalls {
public:
    /// @param n 0 for none.
    explicit FailingCalls(long n) {
        t_left = n;
        t_isTorn = false;
    }
    ~FailingCalls() { t_left = 0; }
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    /// Whether the call was reached; told before the object ends.
    static bool happened() { return t_left <= 0; }

    static inline thread_local long t_left = 0;
    static inline thread_local bool t_isTorn = false; // half of a write is done, the next one fails
};

} // namespace mrl::test
