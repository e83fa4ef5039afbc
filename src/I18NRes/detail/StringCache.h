#pragma once

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLResetableResource.h"
#include "HBLCore/HBLResetableResourceRegistry.h"
#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/HBLThreadGuard.h"
#include "HBLCore/I18NString.h"

#include <atomic>
#include <cstddef>

namespace mrl::detail {

/// The string of a cache slot, made from text() at its first use. Without a lock once it is there.
/// The first string made also registers `owner` for reset.
template <class Text>
const I18NString& cachedString(std::atomic<const I18NString*>& slot, HBLThreadCriticalSection& lock,
                               HBLResetableResource& owner, Text text) {
    if (const I18NString* const cached = slot.load(std::memory_order_acquire))
        return *cached;
    const HBLThreadGuard guard(lock);
    if (const I18NString* const cached = slot.load(std::memory_order_acquire))
        return *cached;
    if (!owner.getRegistered())
        HBLResetableResourceRegistry::getInstance().registerResource(owner);
    const I18NString* const made = hblNew<I18NString>(HBL_HERE, text());
    slot.store(made, std::memory_order_release);
    return *made;
}

/// Empties the slots. No lookup may be under way.
inline void resetCache(std::atomic<const I18NString*>* slots, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        delete slots[i].exchange(nullptr, std::memory_order_acq_rel);
}

} // namespace mrl::detail
