#include "HBLCFGAPI/HBLConfigurationFactory.h"

#include "HBLCFGAPI/detail/Configuration.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmDir.h"
#include "HBLCore/HBLThreadGuard.h"

#include <atomic>
#include <cstdlib>
#include <memory>

using mrl::detail::Configuration;

namespace {

std::atomic<Configuration*> s_instance = nullptr; // owned
HBLThreadCriticalSection s_lock;

constexpr const char* DEFAULT_PATH = "../configuration/qzconfig.xml";

} // namespace

IHBLConfiguration& HBLConfigurationFactory::getInstance() {
    if (Configuration* const made = s_instance.load(std::memory_order_acquire)) {
        return *made;
    }
    const HBLThreadGuard guard(s_lock);
    Configuration* made = s_instance.load(std::memory_order_relaxed);
    if (made == nullptr) {
        made = hblNew<Configuration>(HBL_HERE);
        s_instance.store(made, std::memory_order_release);
    }
    return *made;
}

void HBLConfigurationFactory::deleteInstance() {
    const HBLThreadGuard guard(s_lock);
    const std::unique_ptr<Configuration> ended(s_instance.exchange(nullptr));
}

HBLConfigurationFactory::Location HBLConfigurationFactory::getDefaultLocation() {
    const char* const named = secure_getenv(s_locationVariable);
    const bool isNamed = named != nullptr && *named != '\0';
    Location location{isNamed ? named : DEFAULT_PATH, isNamed};
    HBLFmDir::resolveEffectivePath(location.path);
    return location;
}
