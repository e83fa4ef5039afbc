#pragma once

#include "store/Rights.h"
#include "store/Statement.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mrl::bus {

/// One row of the object table.
struct ObjectRow {
    std::int64_t id = 0;
    std::optional<std::int64_t> parent; ///< none for the root
    std::string storeId;
    std::string objectClass;
    std::string name;
    std::string path; ///< canonical, '' for the root
    std::string created;
    std::string modified;
    std::optional<std::int64_t> owner;
    bool disabled = false;
    bool hidden = false;
    std::int64_t version = 1;
    Rights rights = noRights;

    static constexpr std::int64_t rootId = 1;
    static constexpr std::string_view columns =
        "o.id, o.parent, o.store_id, o.class, o.name, o.path, o.created, o.modified, o.owner, o.disabled, "
        "o.hidden, o.version, o.rights";

    /// From a statement that selected `columns` first.
    static ObjectRow from(const Statement& statement);

    std::string searchPath() const { return path.empty() ? "/" : path; }

    /// The root and its children come with the store: they are neither renamed nor deleted.
    bool isFixture() const { return !parent || *parent == rootId; }

    /// The canonical path of a child.
    std::string childPath(std::string_view childClass, std::string_view childName) const;
};

/// Reads and writes single rows. Keeps its statements prepared: make one for each request, not for each
/// object.
class ObjectTable {
public:
    explicit ObjectTable(Database& database);

    std::optional<ObjectRow> byPath(std::string_view canonicalPath);
    std::optional<ObjectRow> byId(std::int64_t id);
    std::optional<ObjectRow> byName(std::int64_t parent, std::string_view name);

    /// @return the new row's id; `row.id` 0 lets the table choose it.
    std::int64_t insert(const ObjectRow& row);

    /// Writes name, path, modification time, owner, flags and version of a row.
    void update(const ObjectRow& row);

    /// Moves the paths of all below `from` to below `to`.
    void movePaths(const std::string& from, const std::string& to);

    /// Deletes the row and all below it.
    /// @return how many objects went.
    std::int64_t remove(const ObjectRow& row);

private:
    std::optional<ObjectRow> first(Statement& statement);

    Database& m_database;
    Statement m_byPath;
    Statement m_byId;
    Statement m_byName;
    Statement m_insert;
};

} // namespace mrl::bus
