#pragma once

#include "HBLCore/HBLThreadUnsafeReferenceCount.h"

/// The count of references for objects that several threads hold.
class MRL_EXPORT HBLReferenceCount : public HBLThreadUnsafeReferenceCount {
public:
    ~HBLReferenceCount() override;
    int addReference() override;
    int removeReference() override;
    int getReferenceCount() const override;
};
