#pragma once

#include <cstddef>

namespace mrl::detail {

/// Fills `size` bytes from the kernel's generator. It keeps no state in the process, so parent and child, and
/// one run and the next, cannot draw the same bytes.
/// @return false when the kernel refuses.
[[nodiscard]] bool fillRandom(void* bytes, std::size_t size) noexcept;

/// How many forks led to this process since the library was loaded into an ancestor.
unsigned forkCount() noexcept;

} // namespace mrl::detail
