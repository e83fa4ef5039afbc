#include "HBLCore/HBLResetableResourceRegistry.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLResetableResource.h"
#include "HBLCore/HBLThreadGuard.h"

#include <algorithm>

HBLResetableResourceRegistry& HBLResetableResourceRegistry::getInstance() {
    // Never destroyed: static resources leave it when the process ends.
    static auto* registry = new HBLResetableResourceRegistry;
    return *registry;
}

void HBLResetableResourceRegistry::registerResource(HBLResetableResource& resource) {
    const HBLThreadGuard guard(m_lock);
    if (resource.m_registered)
        return;
    hblRethrowing("HBLResetableResourceRegistry::registerResource",
                  [&] { m_resources.push_back(&resource); });
    resource.m_registered = true;
}

void HBLResetableResourceRegistry::unregisterResource(HBLResetableResource& resource) noexcept {
    const HBLThreadGuard guard(m_lock);
    std::erase(m_resources, &resource);
    resource.m_registered = false;
}

void HBLResetableResourceRegistry::resetAll() {
    const HBLThreadGuard guard(m_lock);
    const std::vector<HBLResetableResource*> all = m_resources; // a reset may register or leave
    for (auto at = all.rbegin(); at != all.rend(); ++at)
        if (std::find(m_resources.begin(), m_resources.end(), *at) != m_resources.end())
            (*at)->reset();
}
