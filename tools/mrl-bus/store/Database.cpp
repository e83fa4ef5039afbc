#include "store/Database.h"

#include "store/SqliteError.h"
#include "store/Statement.h"

#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <sqlite3.h>

namespace mrl::bus {

namespace {

/// How many virtual machine steps SQLite runs between two looks at the clock.
constexpr int stepsPerProgress = 20000;
constexpr int busyMilliseconds = 5000;

icu::StringPiece piece(int length, const void* text) {
    return {static_cast<const char*>(text), length};
}

int compareText(void* collator, int leftLength, const void* left, int rightLength, const void* right) {
    UErrorCode status = U_ZERO_ERROR;
    const auto result = static_cast<const icu::Collator*>(collator)->compareUTF8(
        piece(leftLength, left), piece(rightLength, right), status);
    if (U_SUCCESS(status) && result != UCOL_EQUAL)
        return result;
    return std::string_view(static_cast<const char*>(left), static_cast<std::size_t>(leftLength))
        .compare({static_cast<const char*>(right), static_cast<std::size_t>(rightLength)});
}

void deleteCollator(void* collator) {
    delete static_cast<icu::Collator*>(collator);
}

} // namespace

void Database::Closer::operator()(sqlite3* handle) const noexcept {
    sqlite3_close_v2(handle);
}

Database::Database(const std::string& file, Access access) {
    const std::string step = file.empty() ? "opening the store in memory" : "opening the store " + file;
    const int mode =
        access == Access::readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    sqlite3* handle = nullptr;
    const int rc = sqlite3_open_v2(file.empty() ? ":memory:" : file.c_str(), &handle,
                                   mode | SQLITE_OPEN_NOMUTEX, nullptr);
    m_handle.reset(handle); // SQLite hands out a handle for the message even when it fails
    if (rc == SQLITE_CANTOPEN)
        throw SqliteError(
            step,
            access == Access::readOnly
                ? "it cannot be opened; only a store that is there can be read"
                : "it cannot be opened; name a file in a directory that is there and can be written",
            rc);
    if (rc != SQLITE_OK)
        throw SqliteError(step, handle != nullptr ? sqlite3_errmsg(handle) : "out of memory", rc);
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, busyMilliseconds);
    sqlite3_progress_handler(handle, stepsPerProgress, &Database::onProgress, this);
    registerCollation();
    try {
        execute("PRAGMA foreign_keys = ON; PRAGMA trusted_schema = OFF");
        number("SELECT count(*) FROM sqlite_master"); // the first read: tells a database from another file
    } catch (const SqliteError& e) {
        if (e.code() == SQLITE_NOTADB)
            throw SqliteError(step, "it is another kind of file; name a store of this bus, or a new file",
                              e.code());
        throw;
    }
}

Database::~Database() = default;

int Database::onProgress(void* self) noexcept {
    const auto deadline = static_cast<Database*>(self)->m_deadline;
    return deadline != std::chrono::steady_clock::time_point{} && std::chrono::steady_clock::now() > deadline
               ? 1
               : 0;
}

void Database::registerCollation() {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status))
        throw SqliteError("loading the text order", u_errorName(status), SQLITE_ERROR);
    const int rc = sqlite3_create_collation_v2(m_handle.get(), "UNICODE_TEXT", SQLITE_UTF8, collator.get(),
                                               &compareText, &deleteCollator);
    if (rc != SQLITE_OK)
        throw SqliteError("registering the text order", sqlite3_errmsg(m_handle.get()), rc);
    static_cast<void>(collator.release()); // the connection deletes it
}

void Database::execute(const std::string& sql) {
    const int rc = sqlite3_exec(m_handle.get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK)
        throw SqliteError(sql.substr(0, 80), sqlite3_errmsg(m_handle.get()), rc);
}

std::int64_t Database::number(std::string_view sql) {
    Statement statement(*this, sql);
    return statement.step() ? statement.integer(0) : 0;
}

} // namespace mrl::bus
