#pragma once

namespace mrl::bus {

class Database;

/// The tables of the store and their version, kept in the file itself.
class StoreLayout {
public:
    /// Marks a SQLite file as a content store ("MRLb").
    static constexpr int applicationId = 0x4D524C62;
    static constexpr int version = 1;

    /// Makes the tables and the root object in a new database.
    /// @return whether the database was new.
    /// @throws StoreFileError when the file is another program's, or of a later version.
    static bool prepare(Database& database, bool readOnly);
};

} // namespace mrl::bus
