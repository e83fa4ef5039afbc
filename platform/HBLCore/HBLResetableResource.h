#pragma once

#include "HBLCore/MRLExport.h"

#include <atomic>

/// Something kept for the life of the process that can be dropped and made anew. See
/// HBLResetableResourceRegistry.
class MRL_EXPORT HBLResetableResource {
public:
    virtual ~HBLResetableResource();

    /// Drops what is kept; the next use makes it anew. What callers were handed before dangles.
    virtual void reset() = 0;

    /// Whether the registry knows it. Constant work and no lock.
    bool getRegistered() const noexcept { return m_registered; }

protected:
    constexpr HBLResetableResource() noexcept = default;
    HBLResetableResource(const HBLResetableResource&) = delete;
    HBLResetableResource& operator=(const HBLResetableResource&) = delete;

private:
    friend class HBLResetableResourceRegistry;
    std::atomic<bool> m_registered = false;
};
