#pragma once

namespace mrl::bus {

class Database;

/// All or nothing: rolls back on the way out unless `commit` was reached.
class Transaction {
public:
    /// Takes the write lock at once, so that a busy store fails here and not half way.
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database& m_database;
    bool m_open = true;
};

} // namespace mrl::bus
