#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::bus {

/// What a caller may do with an object, as a set of bits. Children inherit the rights of their
/// container when they are added; below a container that may not be entered there are none.
enum class Right : std::uint32_t { read = 1, write = 2, execute = 4, setPolicy = 8, traverse = 16 };

using Rights = std::uint32_t;

constexpr Rights rightsOf(Right right) {
    return static_cast<Rights>(right);
}
constexpr Rights operator|(Right left, Right right) {
    return rightsOf(left) | rightsOf(right);
}
constexpr Rights operator|(Rights left, Right right) {
    return left | rightsOf(right);
}
constexpr bool has(Rights rights, Right right) {
    return (rights & rightsOf(right)) != 0;
}

inline constexpr Rights noRights = 0;
inline constexpr Rights lookOnly = Right::read | Right::traverse | Right::execute;
inline constexpr Rights allRights = lookOnly | Right::write | Right::setPolicy;

/// "read", "write", "execute", "setPolicy", "traverse"; nothing for another text.
std::optional<Right> rightFromText(std::string_view text) noexcept;

/// The texts of a set, in the order of the bits.
std::vector<std::string> rightTexts(Rights rights);

} // namespace mrl::bus
