#pragma once

#include "store/ObjectTable.h"
#include "store/PropertyTable.h"
#include "store/StoreObject.h"
#include "store/StoreRequests.h"

#include <string>
#include <string_view>

namespace mrl::bus {

/// What the store takes from outside; tests give fixed values.
struct StoreSeams;

/// Adds, updates and deletes objects by the rules of the store: rights, unique names, limits. Works in
/// the transaction of its caller.
class ObjectWriter {
public:
    ObjectWriter(Database& database, const StoreSeams& seams,
                 DeadReference deadReference = DeadReference::fail);

    /// The one object that `searchPath` names.
    /// @throws StoreError notFound, or ambiguousPath for a path that selects by rule.
    ObjectRow resolve(const std::string& searchPath);

    /// @return the new object, or the existing one that the options had updated.
    ObjectRow add(const ObjectRow& parent, const StoreObject& object, const AddOptions& options);
    ObjectRow update(const StoreObject& object);
    /// @return how many objects went.
    std::int64_t remove(const ObjectRow& row, const DeleteOptions& options);

    /// As `add`, without asking for rights and with rights of its own: for the store's own content.
    ObjectRow place(const ObjectRow& parent, const StoreObject& object, Rights rights);

private:
    ObjectRow update(ObjectRow row, const StoreObject& object);
    void rename(ObjectRow& row, const std::string& name);
    /// The localized texts and their default, when only one of the two is given.
    void setDefaultTexts(const ObjectRow& row, const StoreObject& object);
    void setBuiltIn(ObjectRow& row, const std::string& name, const PropertyValue& value);
    std::optional<std::int64_t> resolveOwner(const std::string& searchPath);
    void requireDelete(const ObjectRow& row, const DeleteOptions& options);
    void refuseReferenced(const ObjectRow& row);
    void refuseChange(const ObjectRow& row, const std::string& name, const PropertyValue& value);

    Database& m_database;
    const StoreSeams& m_seams;
    DeadReference m_deadReference;
    ObjectTable m_objects;
    PropertyTable m_properties;
};

} // namespace mrl::bus
