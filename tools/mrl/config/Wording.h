#pragma once

#include <string>
#include <string_view>
#include <vector>

// What the checks of configuration files have in common.
namespace mrl::tool {

std::string quoted(std::string_view text);

/// "; did you mean a or b?" with the names nearest to `wanted`, or nothing when none is near.
std::string proposal(std::string_view wanted, const std::vector<std::string_view>& names);

/// Digits behind an optional sign, with at most one point where that is allowed.
bool isNumber(std::string_view text, bool withFraction);

} // namespace mrl::tool
