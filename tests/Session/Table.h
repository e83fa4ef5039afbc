#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace mrl::test {

/// A cell as it is meant: \xHH is a byte, {c*5} is five times c.
inline std::string meant(const std::string& cell) {
    std::string text;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell.compare(i, 2, "\\x") == 0) {
            text += static_cast<char>(std::stoi(cell.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else if (cell[i] == '{') {
            const std::size_t star = cell.find('*', i);
            const std::size_t end = cell.find('}', star);
            for (int n = std::stoi(cell.substr(star + 1, end - star - 1)); n > 0; --n) {
                text += cell.substr(i + 1, star - i - 1);
            }
            i = end;
        } else {
            text += cell[i];
        }
    }
    return text;
}

/// The rows of a table in tests/Session/golden: cells between tabs; "#" begins a comment.
inline std::vector<std::vector<std::string>> table(const std::string& name) {
    std::ifstream file(MRL_TEST_DATA "/golden/" + name);
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#') {
            continue;
        }
        std::vector<std::string> cells;
        for (std::size_t end = 0, begin = 0; end != std::string::npos; begin = end + 1) {
            end = line.find('\t', begin);
            cells.push_back(meant(line.substr(begin, end == std::string::npos ? end : end - begin)));
        }
        rows.push_back(std::move(cells));
    }
    if (rows.empty()) {
        throw std::runtime_error("no rows in " + name);
    }
    return rows;
}

} // namespace mrl::test
