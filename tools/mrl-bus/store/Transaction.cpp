#include "store/Transaction.h"

#include "store/Database.h"

#include <sqlite3.h>

namespace mrl::bus {

Transaction::Transaction(Database& database)
    : m_database(database) {
    database.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    // A failure that SQLite answers with a rollback of its own leaves nothing to roll back.
    if (m_open && sqlite3_get_autocommit(m_database.handle()) == 0)
        sqlite3_exec(m_database.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
    m_database.execute("COMMIT");
    m_open = false;
}

} // namespace mrl::bus
