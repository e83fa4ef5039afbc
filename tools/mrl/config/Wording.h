#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// What the checks of configuration files have in common.
namespace mrl::tool {

/// A finding is one line: that many names at the most are proposed for an unknown one.
inline constexpr std::size_t MOST_PROPOSED = 2;

std::string quoted(std::string_view text);

/// Digits behind an optional sign, with at most one point where that is allowed.
bool isNumber(std::string_view text, bool withFraction);

} // namespace mrl::tool
