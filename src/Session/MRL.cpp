#include "Session/MRL.h"

#include "Session/MRLHelper.h"

#include "HBLCore/HBLThreadGuard.h"

#include <atomic>

int MRL::m_mrlInitCount = 0;
HBLThreadCriticalSection MRL::m_mrlInitLock;

MRL::~MRL() = default;

int MRL::initialize() {
    std::atomic_ref<int> count(m_mrlInitCount);
    if (count.load(std::memory_order_acquire) != 0) {
        return 1;
    }
    const HBLThreadGuard guard(m_mrlInitLock);
    if (count.load(std::memory_order_relaxed) != 0) {
        return 1;
    }
    const int result = MRLHelper::initCrypto("MRL");
    count.store(1, std::memory_order_release);
    return result;
}

int MRL::terminate() {
    const HBLThreadGuard guard(m_mrlInitLock);
    std::atomic_ref<int> count(m_mrlInitCount);
    if (count.load(std::memory_order_relaxed) < 1) {
        return 1;
    }
    count.store(0, std::memory_order_release);
    MRLHelper::terminateCrypto("MRL");
    return 1;
}
