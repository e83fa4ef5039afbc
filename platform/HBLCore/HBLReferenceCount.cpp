#include "HBLCore/HBLReferenceCount.h"

#include <atomic>

HBLReferenceCount::~HBLReferenceCount() = default;

int HBLReferenceCount::addReference() {
    return std::atomic_ref(m_referenceCount).fetch_add(1, std::memory_order_relaxed) + 1;
}

int HBLReferenceCount::removeReference() {
    // Release and acquire: what other threads did to the object comes before its end.
    const int left = std::atomic_ref(m_referenceCount).fetch_sub(1, std::memory_order_acq_rel) - 1;
    if (left == 0)
        cleanup();
    return left;
}

int HBLReferenceCount::getReferenceCount() const {
    return std::atomic_ref(const_cast<int&>(m_referenceCount)).load(std::memory_order_acquire);
}
