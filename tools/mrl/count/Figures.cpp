#include "count/Figures.h"

#include "count/Counting.h"
#include "data/CatalogueData.h"

#include <algorithm>
#include <ostream>

namespace mrl::tool {

std::size_t Figures::compare(std::span<const FigureRow> expected, std::ostream& complaints) const {
    std::size_t count = 0;
    for (const FigureRow& row : expected) {
        const auto mine =
            std::ranges::find_if(m_rows, [&](const Figure& figure) { return figure.name == row.name; });
        if (mine != m_rows.end() && mine->value == row.value)
            continue;
        if (mine == m_rows.end())
            complaints << row.name << " is not counted and should be " << row.value << '\n';
        else
            complaints << row.name << " is " << mine->value << " and should be " << row.value << '\n';
        ++count;
    }
    for (const Figure& figure : m_rows)
        if (std::ranges::none_of(expected, [&](const FigureRow& row) { return figure.name == row.name; })) {
            complaints << figure.name << " is " << figure.value << " and has no expected value\n";
            ++count;
        }
    return count;
}

Figures countLibrary() {
    Figures figures;
    countTypes(figures);
    countMessages(figures);
    countServices(figures);
    countSymbols(figures);
    return figures;
}

} // namespace mrl::tool
