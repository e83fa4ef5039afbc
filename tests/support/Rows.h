#pragma once

#include <cctype>
#include <string>

namespace mrl::test {

/// The name of a row as one of its test: of "half a header" it is half_a_header.
inline constexpr auto nameOfRow = [](const auto& row) {
    std::string name = row.param.name;
    for (char& c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    return name;
};

} // namespace mrl::test
