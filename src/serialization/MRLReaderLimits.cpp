#include "serialization/MRLReaderLimits.h"

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/HBLThreadGuard.h"

namespace {

struct Defaults {
    HBLThreadCriticalSection lock;
    MRLReaderLimits limits;
};

Defaults& defaults() {
    static Defaults s_defaults;
    return s_defaults;
}

} // namespace

MRLReaderLimits MRLReaderLimits::getDefaults() {
    const HBLThreadGuard guard(defaults().lock);
    return defaults().limits;
}

void MRLReaderLimits::setDefaults(const MRLReaderLimits& limits) {
    const HBLThreadGuard guard(defaults().lock);
    defaults().limits = limits;
}
