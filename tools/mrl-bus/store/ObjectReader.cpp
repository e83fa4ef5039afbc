#include "store/ObjectReader.h"

#include "store/Database.h"
#include "store/PropertyRules.h"

#include <algorithm>

namespace mrl::bus {

namespace {

const std::vector<std::string>& searchPathOnly() {
    static const std::vector<std::string> names{"searchPath"};
    return names;
}

/// The kinds PropertyTable writes, one row at a time, into the value they make together.
void addRow(const Statement& row, std::optional<StoreObject> target, PropertyValue& to) {
    const std::string kind = row.text(1);
    const auto list = [&to]<class Item>(Item item) {
        if (!std::holds_alternative<std::vector<Item>>(to))
            to = std::vector<Item>{};
        std::get<std::vector<Item>>(to).push_back(std::move(item));
    };
    if (kind == "text")
        to = row.text(3);
    else if (kind == "integer")
        to = row.integer(3);
    else if (kind == "boolean")
        to = row.integer(3) != 0;
    else if (kind == "decimal")
        to = row.real(3);
    else if (kind == "binary")
        to = Binary{row.blob(3)};
    else if (kind == "localText")
        list(LocalText{row.text(2), row.text(3)});
    else if (kind == "texts")
        list(row.text(3));
    else if (target)
        list(std::move(*target));
}

} // namespace

ObjectReader::ObjectReader(Database& database, const std::vector<std::string>& properties,
                           const ReferenceProperties& references)
    : m_database(database)
    , m_objects(database)
    , m_referenceProperties(references) {
    std::vector<std::string> asked = properties.empty() ? searchPathOnly() : properties;
    std::ranges::sort(asked);
    asked.erase(std::unique(asked.begin(), asked.end()), asked.end());

    const auto free = std::stable_partition(asked.begin(), asked.end(), [](const std::string& name) {
        return findPropertyRule(name) != nullptr;
    });
    m_builtIn.assign(asked.begin(), free);
    std::vector<std::string> inRows(free, asked.end());
    if (std::ranges::binary_search(m_builtIn, "name"))
        inRows.emplace_back("name");
    if (std::ranges::binary_search(m_builtIn, "hasChildren"))
        m_hasChildren.emplace(database, "SELECT 1 FROM object WHERE parent = ? LIMIT 1");
    if (inRows.empty())
        return;

    std::string sql = "SELECT name, kind, locale, value, target FROM property WHERE object = ? AND name IN (";
    for (std::size_t i = 0; i < inRows.size(); ++i)
        sql += i == 0 ? "?" : ", ?";
    m_rows.emplace(database, sql + ") ORDER BY name, position");
    int index = 1;
    for (const auto& name : inRows)
        m_rows->bind(++index, name); // stays bound: only the object changes
}

ObjectReader::~ObjectReader() = default;

StoreObject ObjectReader::read(const ObjectRow& row) {
    StoreObject object;
    object.objectClass = row.objectClass;
    for (const auto& name : m_builtIn)
        readBuiltIn(row, name, object);
    if (m_rows)
        readRows(row, object);
    return object;
}

void ObjectReader::readBuiltIn(const ObjectRow& row, const std::string& name, StoreObject& to) {
    auto& value = to.properties[name];
    if (name == "searchPath")
        value = row.searchPath();
    else if (name == "defaultName")
        value = row.name;
    else if (name == "name")
        value = std::vector<LocalText>{{"en", row.name}}; // until rows say more
    else if (name == "objectClass")
        value = row.objectClass;
    else if (name == "storeID")
        value = row.storeId;
    else if (name == "creationTime")
        value = row.created;
    else if (name == "modificationTime")
        value = row.modified;
    else if (name == "version")
        value = row.version;
    else if (name == "disabled")
        value = row.disabled;
    else if (name == "hidden")
        value = row.hidden;
    else if (name == "permissions")
        value = rightTexts(row.rights);
    else if (name == "hasChildren")
        value = hasChildren(row.id);
    else if (name == "ancestors")
        value = ancestors(row);
    else if (const auto id = name == "owner" ? row.owner : row.parent; id) // owner and parent
        value = References{*reference(name, *id)};
    else
        to.properties.erase(name);
}

bool ObjectReader::hasChildren(std::int64_t id) {
    const bool found = m_hasChildren->start(id).step();
    m_hasChildren->reset();
    return found;
}

void ObjectReader::readRows(const ObjectRow& row, StoreObject& to) {
    m_rows->reset();
    m_rows->bind(1, row.id);
    std::string current;
    while (m_rows->step()) {
        std::string name = m_rows->text(0);
        auto& value = to.properties[name];
        if (name != current)
            value = {};
        addRow(*m_rows, m_rows->isNull(4) ? std::nullopt : reference(name, m_rows->integer(4)), value);
        current = std::move(name);
    }
}

References ObjectReader::ancestors(const ObjectRow& row) {
    References result;
    for (auto id = row.parent; id;) {
        const auto ancestor = m_objects.byId(*id);
        result.insert(result.begin(), *reference("ancestors", *id));
        id = ancestor ? ancestor->parent : std::nullopt;
    }
    return result;
}

std::optional<StoreObject> ObjectReader::reference(const std::string& property, std::int64_t id) {
    const auto row = m_objects.byId(id);
    if (!row)
        return std::nullopt;
    if (!has(row->rights, Right::read)) // a reference shows where it leads, and no more
        return StoreObject{row->objectClass, {{"searchPath", row->searchPath()}}};
    auto& reader = m_referenceReaders[property];
    if (!reader) {
        static const ReferenceProperties noneDeeper;
        static const std::vector<std::string> ofAncestors{"defaultName", "searchPath", "storeID"};
        const auto asked = m_referenceProperties.find(property);
        const auto& usual = property == "ancestors" ? ofAncestors : searchPathOnly();
        reader = std::make_unique<ObjectReader>(
            m_database, asked != m_referenceProperties.end() ? asked->second : usual, noneDeeper);
    }
    return reader->read(*row);
}

} // namespace mrl::bus
