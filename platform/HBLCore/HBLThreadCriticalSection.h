#pragma once

#include "HBLCore/MRLExport.h"

#include <mutex>

/// A lock that one thread may take several times. Ready before any static initializer runs.
class MRL_EXPORT HBLThreadCriticalSection {
public:
    constexpr HBLThreadCriticalSection() noexcept = default;
    HBLThreadCriticalSection(const HBLThreadCriticalSection&) = delete;
    HBLThreadCriticalSection& operator=(const HBLThreadCriticalSection&) = delete;

    void enter() { m_mutex.lock(); }
    bool tryEnter() { return m_mutex.try_lock(); }
    void leave() { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
};
