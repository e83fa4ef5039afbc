#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"

/// Holds a critical section for as long as it lives.
class HBLThreadGuard {
public:
    [[nodiscard]] explicit HBLThreadGuard(HBLThreadCriticalSection& section)
        : m_section(section) {
        m_section.enter();
    }
    ~HBLThreadGuard() { m_section.leave(); }
    HBLThreadGuard(const HBLThreadGuard&) = delete;
    HBLThreadGuard& operator=(const HBLThreadGuard&) = delete;

private:
    HBLThreadCriticalSection& m_section;
};
