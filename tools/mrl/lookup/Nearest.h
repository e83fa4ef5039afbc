#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

/// How many letters must be put in, left out, replaced, or swapped with the next one to make one text of
/// the other; another case of the same letter costs nothing.
std::size_t editDistance(std::string_view a, std::string_view b);

/// The names that `wanted` may have been meant for, the nearest first and at most `count`. None is
/// further away than a third of the letters of `wanted`.
std::vector<std::string_view> nearest(std::string_view wanted, const std::vector<std::string_view>& names,
                                      std::size_t count = 5);

/// "; did you mean a, b or c?" with the nearest names, or nothing when none is near.
std::string proposal(std::string_view wanted, const std::vector<std::string_view>& names,
                     std::size_t count = 5);

} // namespace mrl::tool
