#pragma once

#include "HBLCore/MRLExport.h"

/// A count of references inside the object it counts, for one thread. Starts at 0.
class MRL_EXPORT HBLThreadUnsafeReferenceCount {
public:
    virtual ~HBLThreadUnsafeReferenceCount();

    /// @return the new count.
    virtual int addReference();
    /// Calls cleanup() when the count comes to 0.
    /// @return the new count.
    virtual int removeReference();
    virtual int getReferenceCount() const;

protected:
    HBLThreadUnsafeReferenceCount() noexcept = default;
    // References belong to the object, not to its value: a copy starts at 0.
    HBLThreadUnsafeReferenceCount(const HBLThreadUnsafeReferenceCount&) noexcept {}
    HBLThreadUnsafeReferenceCount& operator=(const HBLThreadUnsafeReferenceCount&) noexcept { return *this; }

    /// Ends the object; deletes it unless a class knows better.
    virtual void cleanup();

    int m_referenceCount = 0;
};
