#include "config/Wording.h"

#include <algorithm>

namespace mrl::tool {

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

bool isNumber(std::string_view text, bool withFraction) {
    if (text.starts_with('-') || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const auto isPart = [&](char c) { return (c >= '0' && c <= '9') || (withFraction && c == '.'); };
    return !text.empty() && std::ranges::all_of(text, isPart) && std::ranges::count(text, '.') <= 1;
}

} // namespace mrl::tool
