#include "lookup/Nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace mrl::tool {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

std::size_t editDistance(std::string_view a, std::string_view b) {
    // Distances of the part of `a` so far to each part of `b`, and those one and two letters earlier.
    std::vector<std::size_t> row(b.size() + 1);
    std::vector<std::size_t> above(row.size());
    std::vector<std::size_t> twoAbove(row.size());
    std::iota(row.begin(), row.end(), std::size_t{0});
    const auto same = [&](std::size_t i, std::size_t j) { return lower(a[i]) == lower(b[j]); };
    for (std::size_t i = 0; i < a.size(); ++i) {
        twoAbove.swap(above);
        above.swap(row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            row[j + 1] = std::min({above[j] + (same(i, j) ? 0 : 1), row[j] + 1, above[j + 1] + 1});
            if (i > 0 && j > 0 && same(i, j - 1) && same(i - 1, j))
                row[j + 1] = std::min(row[j + 1], twoAbove[j - 1] + 1);
        }
    }
    return row.back();
}

std::vector<std::string_view> nearest(std::string_view wanted, const std::vector<std::string_view>& names,
                                      std::size_t count) {
    const std::size_t limit = std::max<std::size_t>(1, wanted.size() / 3);
    std::vector<std::pair<std::size_t, std::string_view>> near;
    for (const std::string_view name : names)
        if (const std::size_t distance = editDistance(wanted, name); distance <= limit)
            near.emplace_back(distance, name);
    std::ranges::sort(near);
    std::vector<std::string_view> result;
    for (const auto& [distance, name] : near)
        if (result.size() < count)
            result.push_back(name);
    return result;
}

std::string proposal(std::string_view wanted, const std::vector<std::string_view>& names, std::size_t count) {
    const std::vector<std::string_view> near = nearest(wanted, names, count);
    std::string text;
    for (std::size_t i = 0; i < near.size(); ++i)
        text.append(i == 0 ? "; did you mean " : i + 1 < near.size() ? ", " : " or ").append(near[i]);
    return text.empty() ? text : text + '?';
}

} // namespace mrl::tool
