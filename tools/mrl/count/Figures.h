#pragma once

#include <cstddef>
#include <iosfwd>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace mrl::tool {

struct FigureRow;

/// What has been counted, by name.
class Figures {
public:
    void add(std::string_view name, std::size_t count) { m_counts[std::string(name)] += count; }
    void set(std::string_view name, std::string_view text) { m_texts[std::string(name)] = text; }

    /// Empty when nothing of that name was counted.
    std::optional<std::string> value(std::string_view name) const;

    /// Writes a line "name: value" for each expected figure, and a sentence for each that differs.
    /// @return how many differ.
    std::size_t compare(std::span<const FigureRow> expected, std::ostream& lines,
                        std::ostream& complaints) const;

private:
    std::map<std::string, std::size_t, std::less<>> m_counts;
    std::map<std::string, std::string, std::less<>> m_texts;
};

/// Asks the built library for each of its figures. The catalogue's data gives the names to ask for, and
/// nothing is counted that the library does not confirm.
Figures countLibrary();

} // namespace mrl::tool
