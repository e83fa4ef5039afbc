#include "HBLCore/HBLThreadUnsafeReferenceCount.h"

HBLThreadUnsafeReferenceCount::~HBLThreadUnsafeReferenceCount() = default;

int HBLThreadUnsafeReferenceCount::addReference() {
    return ++m_referenceCount;
}

int HBLThreadUnsafeReferenceCount::removeReference() {
    const int left = --m_referenceCount;
    if (left == 0)
        cleanup();
    return left;
}

int HBLThreadUnsafeReferenceCount::getReferenceCount() const {
    return m_referenceCount;
}

void HBLThreadUnsafeReferenceCount::cleanup() {
    delete this;
}
