#pragma once

#include <cstdint>
#include <string>

namespace mrl::detail {

/// The name of the next recorded attachment: the base, and from the second on its number behind it.
/// @param count how many there were; it wraps at 65536.
inline std::string nextAttachmentName(const std::string& base, std::uint16_t& count) {
    ++count;
    return count > 1 ? base + std::to_string(count) : base;
}

} // namespace mrl::detail
