#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3_stmt;

namespace mrl::bus {

class Database;

/// Bytes to be bound as such; borrowed.
struct BlobView {
    std::string_view bytes;
};

/// One prepared statement. Parameters are bound in order, 1-based in SQL and from left to right here;
/// columns are 0-based. Lives no longer than its Database.
class Statement {
public:
    /// @throws SqliteError quoting the statement when it does not compile.
    Statement(Database& database, std::string_view sql);

    void bind(int index, std::int64_t value);
    void bind(int index, double value);
    void bind(int index, std::string_view text);
    void bind(int index, BlobView blob);
    void bind(int index, std::nullopt_t null);
    void bind(int index, const char* text) { bind(index, std::string_view(text)); }
    void bind(int index, const std::string& text) { bind(index, std::string_view(text)); }
    void bind(int index, bool value) { bind(index, static_cast<std::int64_t>(value)); }
    void bind(int index, int value) { bind(index, static_cast<std::int64_t>(value)); }
    template <class T>
    void bind(int index, const std::optional<T>& value) {
        value ? bind(index, *value) : bind(index, std::nullopt);
    }

    /// Starts again with these parameters.
    template <class... Parameters>
    Statement& start(const Parameters&... parameters) {
        reset();
        int index = 0;
        (bind(++index, parameters), ...);
        return *this;
    }

    /// start, then runs to the end.
    template <class... Parameters>
    void run(const Parameters&... parameters) {
        start(parameters...);
        while (step()) {
        }
    }

    /// @return whether there is a row.
    bool step();
    void reset() noexcept;

    bool isNull(int column) const;
    bool isText(int column) const;
    std::int64_t integer(int column) const;
    double real(int column) const;
    std::string text(int column) const;
    std::string blob(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    void check(int rc, const char* step) const;

    Database& m_database;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

} // namespace mrl::bus
