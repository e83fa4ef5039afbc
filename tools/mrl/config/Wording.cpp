#include "config/Wording.h"

#include "lookup/Nearest.h"

#include <algorithm>

namespace mrl::tool {

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string proposal(std::string_view wanted, const std::vector<std::string_view>& names) {
    constexpr std::size_t MOST = 2;
    std::string text;
    for (const std::string_view near : nearest(wanted, names, MOST)) {
        text += (text.empty() ? "; did you mean " : " or ") + std::string(near);
    }
    return text.empty() ? text : text + "?";
}

bool isNumber(std::string_view text, bool withFraction) {
    if (text.starts_with('-') || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const auto isPart = [&](char c) { return (c >= '0' && c <= '9') || (withFraction && c == '.'); };
    return !text.empty() && std::ranges::all_of(text, isPart) && std::ranges::count(text, '.') <= 1;
}

} // namespace mrl::tool
