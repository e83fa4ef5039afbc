#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

struct FigureRow;

/// Named figures in the order in which they were counted.
class Figures {
public:
    struct Figure {
        std::string name;
        std::string value;
    };

    void add(std::string_view name, std::size_t value) { add(name, std::to_string(value)); }
    void add(std::string_view name, std::string value) {
        m_rows.push_back({std::string(name), std::move(value)});
    }

    const std::vector<Figure>& rows() const { return m_rows; }

    /// Writes one sentence for each figure that differs, is missing, or has no row in `expected`.
    /// @return how many sentences there were.
    std::size_t compare(std::span<const FigureRow> expected, std::ostream& complaints) const;

private:
    std::vector<Figure> m_rows;
};

/// Asks the built library for each of its figures. The catalogue's data gives the names to ask for, and
/// nothing is counted that the library does not confirm.
Figures countLibrary();

} // namespace mrl::tool
