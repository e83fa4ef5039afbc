#include "store/ObjectTable.h"

#include "store/Database.h"
#include "store/SearchPath.h"
#include "store/StoreError.h"

#include <sqlite3.h>

namespace mrl::bus {

namespace {

std::string select(std::string_view where) {
    return "SELECT " + std::string(ObjectRow::columns) + " FROM object o WHERE " + std::string(where);
}

std::optional<std::int64_t> optionalInteger(const Statement& statement, int column) {
    return statement.isNull(column) ? std::nullopt : std::optional(statement.integer(column));
}

} // namespace

ObjectRow ObjectRow::from(const Statement& s) {
    ObjectRow row;
    row.id = s.integer(0);
    row.parent = optionalInteger(s, 1);
    row.storeId = s.text(2);
    row.objectClass = s.text(3);
    row.name = s.text(4);
    row.path = s.text(5);
    row.created = s.text(6);
    row.modified = s.text(7);
    row.owner = optionalInteger(s, 8);
    row.disabled = s.integer(9) != 0;
    row.hidden = s.integer(10) != 0;
    row.version = s.integer(11);
    row.rights = static_cast<Rights>(s.integer(12));
    return row;
}

std::string ObjectRow::childPath(std::string_view childClass, std::string_view childName) const {
    return id == rootId ? "/" + std::string(childClass)
                        : path + "/" + SearchPath::step(childClass, childName);
}

ObjectTable::ObjectTable(Database& database)
    : m_database(database)
    , m_byPath(database, select("o.path = ?"))
    , m_byId(database, select("o.id = ?"))
    , m_byName(database, select("o.parent = ? AND o.name = ?"))
    , m_insert(database,
               "INSERT INTO object (id, parent, store_id, class, name, path, created, modified, owner, "
               "disabled, hidden, version, rights) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)") {}

std::optional<ObjectRow> ObjectTable::first(Statement& statement) {
    std::optional<ObjectRow> row;
    if (statement.step())
        row = ObjectRow::from(statement);
    statement.reset();
    return row;
}

std::optional<ObjectRow> ObjectTable::byPath(std::string_view canonicalPath) {
    return first(m_byPath.start(canonicalPath));
}

std::optional<ObjectRow> ObjectTable::byId(std::int64_t id) {
    return first(m_byId.start(id));
}

std::optional<ObjectRow> ObjectTable::byName(std::int64_t parent, std::string_view name) {
    return first(m_byName.start(parent, name));
}

std::int64_t ObjectTable::insert(const ObjectRow& row) {
    const auto id = row.id != 0 ? std::optional(row.id) : std::nullopt;
    m_insert.run(id, row.parent, row.storeId, row.objectClass, row.name, row.path, row.created, row.modified,
                 row.owner, row.disabled, row.hidden, row.version, static_cast<std::int64_t>(row.rights));
    return sqlite3_last_insert_rowid(m_database.handle());
}

void ObjectTable::update(const ObjectRow& row) {
    Statement(m_database, "UPDATE object SET name = ?, path = ?, modified = ?, owner = ?, disabled = ?, "
                          "hidden = ?, version = ? WHERE id = ?")
        .run(row.name, row.path, row.modified, row.owner, row.disabled, row.hidden, row.version, row.id);
}

void ObjectTable::movePaths(const std::string& from, const std::string& to) {
    Statement(m_database, "UPDATE object SET path = ?1 || substr(path, length(?2) + 1) "
                          "WHERE path > ?2 || '/' AND path < ?2 || '0'")
        .run(to, from);
    Statement longest(m_database, "SELECT max(length(CAST(path AS BLOB))) FROM object "
                                  "WHERE path > ?1 || '/' AND path < ?1 || '0'");
    longest.start(to).step();
    if (longest.integer(0) > static_cast<std::int64_t>(SearchPath::maxLength))
        throw StoreError(StoreErrorCode::tooMuch,
                         "With the new name, search paths below the object grow beyond " +
                             std::to_string(SearchPath::maxLength) + " bytes; choose a shorter one.");
}

std::int64_t ObjectTable::remove(const ObjectRow& row) {
    Statement count(m_database,
                    "SELECT 1 + count(*) FROM object WHERE path > ?1 || '/' AND path < ?1 || '0'");
    count.start(row.path).step();
    const auto removed = count.integer(0);
    Statement(m_database, "DELETE FROM object WHERE id = ?").run(row.id);
    return removed;
}

} // namespace mrl::bus
