#include "store/StoreLayout.h"

#include "store/Database.h"
#include "store/StoreFileError.h"
#include "store/Transaction.h"

#include <string>

namespace mrl::bus {

namespace {

// `path` is the object's canonical search path, '' for the root. Kept in the row, it turns an exact path
// into one probe and "all reports below X" into one range of by_class; renaming pays for it. `rights`
// holds what is in force, inheritance already applied.
constexpr const char* tables = R"sql(
CREATE TABLE object (
    id INTEGER PRIMARY KEY,
    store_id TEXT NOT NULL UNIQUE,
    parent INTEGER REFERENCES object(id) ON DELETE CASCADE,
    class TEXT NOT NULL,
    name TEXT NOT NULL,
    path TEXT NOT NULL UNIQUE,
    created TEXT NOT NULL,
    modified TEXT NOT NULL,
    owner INTEGER REFERENCES object(id) ON DELETE SET NULL,
    disabled INTEGER NOT NULL DEFAULT 0,
    hidden INTEGER NOT NULL DEFAULT 0,
    version INTEGER NOT NULL DEFAULT 1,
    rights INTEGER NOT NULL
);
CREATE UNIQUE INDEX by_name ON object(parent, name);
CREATE INDEX by_parent ON object(parent, class, path);
CREATE INDEX by_class ON object(class, path);
CREATE INDEX by_owner ON object(owner);

CREATE TABLE property (
    object INTEGER NOT NULL REFERENCES object(id) ON DELETE CASCADE,
    name TEXT NOT NULL,
    position INTEGER NOT NULL,
    kind TEXT NOT NULL,
    locale TEXT,
    value ANY,
    target INTEGER REFERENCES object(id) ON DELETE CASCADE,
    PRIMARY KEY (object, name, position)
) WITHOUT ROWID;
CREATE INDEX by_target ON property(target) WHERE target IS NOT NULL;
)sql";

} // namespace

bool StoreLayout::prepare(Database& database, bool readOnly) {
    const auto application = database.number("PRAGMA application_id");
    const auto found = database.number("PRAGMA user_version");
    if (application == applicationId) {
        if (found > version)
            throw StoreFileError("The store has layout " + std::to_string(found) + ", this mrl-bus knows " +
                                 std::to_string(version) + ": use the mrl-bus that wrote it, or a new file.");
        return false; // layout 1 is the first; a later one upgrades here
    }
    if (application != 0 || found != 0 || database.number("SELECT count(*) FROM sqlite_master") != 0)
        throw StoreFileError("The file is another program's database, not a content store: give a new file.");
    if (readOnly)
        throw StoreFileError(
            "The store is new and cannot be filled read-only: start once without --read-only.");

    Transaction transaction(database);
    database.execute(tables);
    database.execute("PRAGMA application_id = " + std::to_string(applicationId));
    database.execute("PRAGMA user_version = " + std::to_string(version));
    transaction.commit();
    return true;
}

} // namespace mrl::bus
