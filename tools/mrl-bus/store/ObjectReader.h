#pragma once

#include "store/ObjectTable.h"
#include "store/Statement.h"
#include "store/StoreObject.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mrl::bus {

/// Makes StoreObjects of rows, with the asked properties only. What is asked is fixed for its lifetime,
/// so that a thousand objects cost a thousand lookups and no thousand preparations.
class ObjectReader {
public:
    using ReferenceProperties = std::map<std::string, std::vector<std::string>, std::less<>>;

    ObjectReader(Database& database, const std::vector<std::string>& properties,
                 const ReferenceProperties& references = {});
    ~ObjectReader();

    StoreObject read(const ObjectRow& row);

private:
    void readBuiltIn(const ObjectRow& row, const std::string& name, StoreObject& to);
    void readRows(const ObjectRow& row, StoreObject& to);
    bool hasChildren(std::int64_t id);
    References ancestors(const ObjectRow& row);
    std::optional<StoreObject> reference(const std::string& property, std::int64_t id);

    Database& m_database;
    ObjectTable m_objects;
    std::vector<std::string> m_builtIn;
    std::optional<Statement> m_rows; ///< the asked free properties of an object; none when none is asked
    std::optional<Statement> m_hasChildren;
    const ReferenceProperties& m_referenceProperties;
    std::map<std::string, std::unique_ptr<ObjectReader>, std::less<>> m_referenceReaders;
};

} // namespace mrl::bus
