#pragma once

namespace mrl::detail {

/// Runs a step of giving back, whose failure must not hide what led there, or that has nobody to tell.
template <class Step>
void swallowing(Step&& step) noexcept {
    try {
        step();
    } catch (...) { // see above
    }
}

} // namespace mrl::detail
