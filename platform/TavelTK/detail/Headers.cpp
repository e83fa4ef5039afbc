#include "TavelTK/detail/Headers.h"

#include <algorithm>
#include <charconv>

namespace mrl::detail {

namespace {

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isNameChar(char c) {
    return (lower(c) >= 'a' && lower(c) <= 'z') || (c >= '0' && c <= '9') ||
           std::string_view("!#$%&'*+-.^_`|~").find(c) != std::string_view::npos;
}

constexpr bool isControl(char c) {
    const auto u = static_cast<unsigned char>(c);
    return (u < ' ' && u != '\t') || u == 0x7f;
}

std::string_view trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    return text;
}

} // namespace

bool sameText(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

bool Headers::add(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || colon == 0)
        return false;
    const std::string_view name = line.substr(0, colon);
    const std::string_view value = trim(line.substr(colon + 1));
    if (!std::ranges::all_of(name, isNameChar) || std::ranges::any_of(value, isControl))
        return false;
    m_lines.emplace_back(name, value);
    return true;
}

const std::string* Headers::find(std::string_view name) const {
    const auto found = std::ranges::find_if(m_lines, [&](const auto& l) { return sameText(l.first, name); });
    return found == m_lines.end() ? nullptr : &found->second;
}

std::size_t Headers::count(std::string_view name) const {
    return static_cast<std::size_t>(
        std::ranges::count_if(m_lines, [&](const auto& l) { return sameText(l.first, name); }));
}

bool Headers::hasToken(std::string_view name, std::string_view token) const {
    for (const auto& [lineName, value] : m_lines) {
        if (!sameText(lineName, name))
            continue;
        std::string_view rest = value;
        while (!rest.empty()) {
            const std::size_t comma = std::min(rest.find(','), rest.size());
            if (sameText(trim(rest.substr(0, comma)), token))
                return true;
            rest.remove_prefix(std::min(comma + 1, rest.size()));
        }
    }
    return false;
}

std::int64_t parseLength(std::string_view text) {
    std::int64_t length = -1;
    if (text.empty() || text.front() == '-')
        return -1;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), length);
    return error == std::errc{} && stop == text.data() + text.size() ? length : -1;
}

} // namespace mrl::detail
