#include "count/Figures.h"

#include "count/Counting.h"
#include "data/CatalogueData.h"

#include <ostream>

namespace mrl::tool {

std::optional<std::string> Figures::value(std::string_view name) const {
    if (const auto count = m_counts.find(name); count != m_counts.end())
        return std::to_string(count->second);
    if (const auto text = m_texts.find(name); text != m_texts.end())
        return text->second;
    return std::nullopt;
}

std::size_t Figures::compare(std::span<const FigureRow> expected, std::ostream& lines,
                             std::ostream& complaints) const {
    std::size_t differences = 0;
    for (const FigureRow& row : expected) {
        const std::string counted = value(row.name).value_or("not counted");
        lines << row.name << ": " << counted << '\n';
        if (counted != row.value) {
            complaints << row.name << " should be " << row.value << " and is " << counted << '\n';
            ++differences;
        }
    }
    return differences;
}

Figures countLibrary() {
    Figures figures;
    countTypes(figures);
    countValues(figures);
    countMessages(figures);
    countServices(figures);
    countSymbols(figures);
    return figures;
}

} // namespace mrl::tool
