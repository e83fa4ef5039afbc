#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

namespace mrl::bus {

/// One connection to a SQLite database. Not for two threads at a time.
class Database {
public:
    enum class Access { readWrite, readOnly };

    /// Opens `file`, or a database in memory when it is empty. Foreign keys are on, and the collation
    /// "UNICODE_TEXT" (root locale order, ties broken by code point) is there for ORDER BY.
    /// @throws SqliteError naming the file when it cannot be opened or is no database.
    explicit Database(const std::string& file, Access access = Access::readWrite);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs statements that give no rows.
    void execute(const std::string& sql);

    /// The number a PRAGMA or any one-value query gives.
    std::int64_t number(std::string_view sql);

    /// Statements that run past the time are interrupted and end in SqliteError with SQLITE_INTERRUPT.
    void setDeadline(std::chrono::steady_clock::time_point deadline) noexcept { m_deadline = deadline; }
    void clearDeadline() noexcept { m_deadline = {}; }

    sqlite3* handle() const noexcept { return m_handle.get(); }

private:
    struct Closer {
        void operator()(sqlite3* handle) const noexcept;
    };
    static int onProgress(void* self) noexcept;
    void registerCollation();

    std::unique_ptr<sqlite3, Closer> m_handle;
    std::chrono::steady_clock::time_point m_deadline{};
};

} // namespace mrl::bus
