#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrl::detail {

/// Whether two texts are the same but for the case of ASCII letters.
bool sameText(std::string_view a, std::string_view b);

/// Header lines of a reply or of one part.
class Headers {
public:
    /// Takes one line without its end. @return false when it is no header line
    bool add(std::string_view line);

    /// The value of the first header of that name; null if there is none.
    const std::string* find(std::string_view name) const;
    std::size_t count(std::string_view name) const;
    /// Whether a comma-separated value of the header is `token`.
    bool hasToken(std::string_view name, std::string_view token) const;

    using Lines = std::vector<std::pair<std::string, std::string>>;
    const Lines& lines() const { return m_lines; }

private:
    Lines m_lines;
};

/// Decimal digits and nothing else, below 2^63; -1 otherwise.
std::int64_t parseLength(std::string_view text);

} // namespace mrl::detail
