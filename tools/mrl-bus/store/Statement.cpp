#include "store/Statement.h"

#include "store/Database.h"
#include "store/SqliteError.h"

#include <sqlite3.h>

namespace mrl::bus {

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

Statement::Statement(Database& database, std::string_view sql)
    : m_database(database) {
    sqlite3_stmt* statement = nullptr;
    const int rc =
        sqlite3_prepare_v2(database.handle(), sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    m_statement.reset(statement);
    if (rc != SQLITE_OK)
        throw SqliteError("preparing \"" + std::string(sql) + "\"", sqlite3_errmsg(database.handle()), rc);
}

void Statement::check(int rc, const char* step) const {
    if (rc != SQLITE_OK)
        throw SqliteError(step, sqlite3_errmsg(m_database.handle()), rc);
}

void Statement::bind(int index, std::int64_t value) {
    check(sqlite3_bind_int64(m_statement.get(), index, value), "binding a number");
}

void Statement::bind(int index, double value) {
    check(sqlite3_bind_double(m_statement.get(), index, value), "binding a number");
}

void Statement::bind(int index, std::string_view text) {
    // A null pointer would bind NULL; an empty view may hold one.
    check(sqlite3_bind_text64(m_statement.get(), index, text.data() != nullptr ? text.data() : "",
                              text.size(), SQLITE_TRANSIENT, SQLITE_UTF8),
          "binding a text");
}

void Statement::bind(int index, BlobView blob) {
    check(sqlite3_bind_blob64(m_statement.get(), index, blob.bytes.empty() ? "" : blob.bytes.data(),
                              blob.bytes.size(), SQLITE_TRANSIENT),
          "binding bytes");
}

void Statement::bind(int index, std::nullopt_t) {
    check(sqlite3_bind_null(m_statement.get(), index), "binding NULL");
}

bool Statement::step() {
    const int rc = sqlite3_step(m_statement.get());
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    const std::string reason = sqlite3_errmsg(m_database.handle());
    reset();
    throw SqliteError("running a statement", reason, rc);
}

void Statement::reset() noexcept {
    sqlite3_reset(m_statement.get());
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

bool Statement::isText(int column) const {
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_TEXT;
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(m_statement.get(), column);
}

std::string Statement::text(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    if (bytes == nullptr)
        return {};
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
}

std::string Statement::blob(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement.get(), column));
    if (bytes == nullptr)
        return {};
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
}

} // namespace mrl::bus
