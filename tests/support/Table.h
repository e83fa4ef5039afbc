#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace mrl::test {

/// A cell with each \xHH as the byte it stands for, \r and \n as the ends of lines.
inline std::string withBytes(const std::string& cell) {
    std::string text;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        const char next = cell[i] == '\\' && i + 1 < cell.size() ? cell[i + 1] : '\0';
        const bool isByte = next == 'x';
        const bool isEnd = next == 'r' || next == 'n';
        text += isByte  ? static_cast<char>(std::stoi(cell.substr(i + 2, 2), nullptr, 16))
                : isEnd ? (next == 'r' ? '\r' : '\n')
                        : cell[i];
        i += isByte ? 3 : isEnd ? 1 : 0;
    }
    return text;
}

/// A cell as it is meant: \xHH is a byte, {c*5} is five times c.
inline std::string meant(const std::string& cell) {
    std::string text;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] != '{') {
            text += cell[i];
            continue;
        }
        const std::size_t star = cell.find('*', i);
        const std::size_t end = cell.find('}', star);
        for (int n = std::stoi(cell.substr(star + 1, end - star - 1)); n > 0; --n) {
            text += cell.substr(i + 1, star - i - 1);
        }
        i = end;
    }
    return withBytes(text);
}

/// A text in its pieces; "" is one empty piece.
inline std::vector<std::string> split(const std::string& text, const std::string& separator) {
    std::vector<std::string> pieces;
    for (std::size_t end = 0, begin = 0; end != std::string::npos; begin = end + separator.size()) {
        end = text.find(separator, begin);
        pieces.push_back(text.substr(begin, end == std::string::npos ? end : end - begin));
    }
    return pieces;
}

/// The rows of a table in the folder "golden" of this test program, as they stand there: cells between
/// tabs; "#" begins a comment.
inline std::vector<std::vector<std::string>> plainTable(const std::string& name) {
    std::ifstream file(MRL_TEST_DATA "/golden/" + name);
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.front() != '#') {
            rows.push_back(split(line, "\t"));
        }
    }
    if (rows.empty()) {
        throw std::runtime_error("no rows in " + name);
    }
    return rows;
}

/// The same with each cell as it is meant.
inline std::vector<std::vector<std::string>> table(const std::string& name) {
    auto rows = plainTable(name);
    for (auto& row : rows) {
        for (std::string& cell : row) {
            cell = meant(cell);
        }
    }
    return rows;
}

} // namespace mrl::test
