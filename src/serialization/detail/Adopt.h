#pragma once

#include "Toolkit/MRLObjectRegistryI.h"

#include <memory>

namespace mrl::detail {

/// Gives a new object to the registry, and gives it up when the registry cannot take it.
/// @param mode for plain values, how they are given back.
template <class T, class... Mode>
T* adopted(MRLObjectRegistryI& registry, T* made, Mode... mode) {
    std::unique_ptr<T> held(made);
    registry.registerPointer(made, mode...);
    return held.release();
}

} // namespace mrl::detail
