#pragma once

#include "store/ObjectTable.h"
#include "store/StoreObject.h"
#include "store/StoreRequests.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::bus {

/// Writes the free properties of objects: rows of a name, one for each text, value or referenced object,
/// whose kind tells ObjectReader how to put them together again.
class PropertyTable {
public:
    explicit PropertyTable(Database& database);

    /// Replaces the property's value; monostate and empty lists leave none.
    /// @throws StoreError notFound when a reference leads nowhere, unless those are dropped.
    void set(std::int64_t object, const std::string& name, const PropertyValue& value, ObjectTable& objects,
             DeadReference deadReference);

    /// Puts `now` where a row of the property holds the text `before`.
    void replaceText(std::int64_t object, std::string_view name, std::string_view before,
                     std::string_view now);

private:
    Database& m_database;
    Statement m_clear;
    Statement m_insert;
};

} // namespace mrl::bus
