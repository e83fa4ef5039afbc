#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/MRLExport.h"

#include <vector>

class HBLResetableResource;

/// The resources of the process that can be reset together. Thread-safe.
class MRL_EXPORT HBLResetableResourceRegistry {
public:
    static HBLResetableResourceRegistry& getInstance();

    /// Borrowed until it is unregistered, which its destructor does. A second time does nothing.
    void registerResource(HBLResetableResource& resource);
    void unregisterResource(HBLResetableResource& resource) noexcept;

    /// Resets every resource, the last registered first. They stay registered. Not while one is in use.
    void resetAll();

private:
    HBLResetableResourceRegistry() noexcept = default;

    HBLThreadCriticalSection m_lock;
    std::vector<HBLResetableResource*> m_resources;
};
