#pragma once

#include <stdexcept>
#include <string>

namespace mrl::bus {

/// The database refused: names the step, SQLite's own words and its extended code.
class SqliteError : public std::runtime_error {
public:
    SqliteError(const std::string& step, const std::string& reason, int code)
        : std::runtime_error(step + ": " + reason + " (SQLite " + std::to_string(code) + ")")
        , m_code(code) {}

    int code() const noexcept { return m_code; }

private:
    int m_code;
};

} // namespace mrl::bus
