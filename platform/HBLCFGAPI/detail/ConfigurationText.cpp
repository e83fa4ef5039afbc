#include "HBLCFGAPI/detail/ConfigurationText.h"

#include <algorithm>

namespace mrl::detail {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view WHITE = " \t\r\n";
    const auto first = text.find_first_not_of(WHITE);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(WHITE) - first + 1);
}

bool isWholeNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

bool isHttpAddress(std::string_view text) {
    for (const std::string_view scheme : {"http://", "https://"}) {
        if (text.starts_with(scheme)) {
            text.remove_prefix(scheme.size());
            return !text.empty() && text.front() != '/' && text.find_first_of(" \t\r\n") == text.npos;
        }
    }
    return false;
}

} // namespace mrl::detail
