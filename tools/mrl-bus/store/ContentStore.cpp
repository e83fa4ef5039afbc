#include "store/ContentStore.h"

#include "store/ObjectReader.h"
#include "store/ObjectWriter.h"
#include "store/PropertyRules.h"
#include "store/SampleContent.h"
#include "store/SearchPath.h"
#include "store/Selection.h"
#include "store/SqliteError.h"
#include "store/Statement.h"
#include "store/StoreError.h"
#include "store/StoreLayout.h"
#include "store/Transaction.h"

#include <sqlite3.h>

namespace mrl::bus {

namespace {

Database::Access accessFor(const StoreSettings& settings) {
    return settings.readOnly && !settings.file.empty() ? Database::Access::readOnly
                                                       : Database::Access::readWrite;
}

/// The time an operation may take, taken off again on every way out.
class TimeLimit {
public:
    TimeLimit(Database& database, std::chrono::milliseconds limit)
        : m_database(database) {
        database.setDeadline(std::chrono::steady_clock::now() + limit);
    }
    ~TimeLimit() { m_database.clearDeadline(); }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

private:
    Database& m_database;
};

/// Refuses what the caller named but may not see. Selections leave such objects out instead.
void checkAccess(const SearchPath& path, ObjectTable& objects) {
    for (const auto& branch : path.branches) {
        const FixedPart fixed = FixedPart::of(branch);
        const auto row = objects.byPath(fixed.path);
        if (!row)
            continue;
        const bool entered = fixed.steps < branch.size();
        const auto parent = row->parent ? objects.byId(*row->parent) : std::nullopt;
        if (entered ? !has(row->rights, Right::traverse) : parent && !has(parent->rights, Right::traverse))
            throw StoreError(StoreErrorCode::noPermission, "You have no right to enter " +
                                                               (entered ? row : parent)->searchPath() +
                                                               "; ask its owner for traverse permission.");
        if (!entered && !has(row->rights, Right::read))
            throw StoreError(StoreErrorCode::noRead, "You have no right to read " + row->searchPath() +
                                                         "; ask its owner for read permission.");
    }
}

std::string sortExpression(const SortKey& key, std::vector<std::string>& parameters) {
    const PropertyRule* rule = findPropertyRule(key.property);
    if (rule != nullptr && rule->column.empty())
        throw StoreError(StoreErrorCode::badOption, "Objects cannot be sorted by " + key.property +
                                                        "; sort by a simple property such as defaultName.");
    std::string sql;
    if (rule != nullptr) {
        sql = rule->column;
    } else {
        sql = "(SELECT q.value FROM property q WHERE q.object = o.id AND q.name = ? ORDER BY q.position "
              "LIMIT 1)";
        parameters.push_back(key.property);
    }
    return sql + " COLLATE UNICODE_TEXT " + (key.descending ? "DESC" : "ASC") + " NULLS LAST, ";
}

void checkCount(std::int64_t count, const char* option) {
    if (count < 0)
        throw StoreError(StoreErrorCode::badOption, std::string("The option ") + option + " is " +
                                                        std::to_string(count) + "; give 0 or more.");
}

} // namespace

ContentStore::ContentStore(StoreSettings settings)
    : m_settings(std::move(settings))
    , m_database(m_settings.file, accessFor(m_settings)) {
    const bool memory = m_settings.file.empty();
    if (!StoreLayout::prepare(m_database, m_settings.readOnly && !memory))
        return;
    Transaction transaction(m_database);
    ObjectWriter writer(m_database, m_settings.seams);
    SampleContent content(m_database, m_settings.seams, writer);
    content.placeFixtures();
    if (!m_settings.empty)
        content.placeSamples();
    transaction.commit();
}

ContentStore::~ContentStore() = default;

template <class F>
auto ContentStore::operate(F&& step) {
    const std::lock_guard guard(m_mutex);
    const TimeLimit limit(m_database, m_settings.seams.timeLimit);
    try {
        return step();
    } catch (const SqliteError& e) {
        if (e.code() == SQLITE_INTERRUPT)
            throw StoreError(StoreErrorCode::tooMuch,
                             "The request took longer than " +
                                 std::to_string(m_settings.seams.timeLimit.count()) +
                                 " ms and was given up; ask for less, for example with "
                                 "a class in place of '*'.");
        throw;
    }
}

void ContentStore::refuseWhenReadOnly() const {
    if (m_settings.readOnly)
        throw StoreError(StoreErrorCode::noWrite,
                         "The store is read-only; start mrl-bus without --read-only to change it.");
}

std::vector<StoreObject> ContentStore::query(const QueryRequest& request) {
    const SearchPath path = SearchPath::parse(request.searchPath);
    Selection selection = Selection::of(path);
    checkCount(request.skipObjects, "skipObjects");
    checkCount(request.maxObjects.value_or(0), "maxObjects");

    const Rights needed = rightsOf(Right::read) | rightsOf(request.permission.value_or(Right::read));
    std::string sql = std::string("SELECT ") + (selection.distinct ? "DISTINCT " : "") +
                      std::string(ObjectRow::columns) + " FROM " + selection.from + " WHERE " +
                      selection.where + " AND (o.rights & " + std::to_string(needed) +
                      ") = " + std::to_string(needed) + " ORDER BY ";
    for (const auto& key : request.sortBy)
        sql += sortExpression(key, selection.parameters);
    sql += "o.path LIMIT " + std::to_string(request.maxObjects.value_or(-1)) + " OFFSET " +
           std::to_string(request.skipObjects);

    return operate([&] {
        ObjectTable objects(m_database);
        checkAccess(path, objects);
        ObjectReader reader(m_database, request.properties, request.referenceProperties);
        Statement select(m_database, sql);
        int index = 0;
        for (const auto& parameter : selection.parameters)
            select.bind(++index, parameter);
        std::vector<StoreObject> result;
        while (select.step())
            result.push_back(reader.read(ObjectRow::from(select)));
        return result;
    });
}

std::vector<StoreObject> ContentStore::add(const std::string& parentPath,
                                           const std::vector<StoreObject>& objects,
                                           const AddOptions& options) {
    refuseWhenReadOnly();
    return operate([&] {
        Transaction transaction(m_database);
        ObjectWriter writer(m_database, m_settings.seams, options.deadReference);
        ObjectReader reader(m_database, options.returnProperties);
        const ObjectRow parent = writer.resolve(parentPath);
        std::vector<StoreObject> result;
        result.reserve(objects.size());
        for (const auto& object : objects)
            result.push_back(reader.read(writer.add(parent, object, options)));
        transaction.commit();
        return result;
    });
}

std::vector<StoreObject> ContentStore::update(const std::vector<StoreObject>& objects,
                                              const UpdateOptions& options) {
    refuseWhenReadOnly();
    return operate([&] {
        Transaction transaction(m_database);
        ObjectWriter writer(m_database, m_settings.seams, options.deadReference);
        ObjectReader reader(m_database, options.returnProperties);
        std::vector<StoreObject> result;
        result.reserve(objects.size());
        for (const auto& object : objects)
            result.push_back(reader.read(writer.update(object)));
        transaction.commit();
        return result;
    });
}

std::int64_t ContentStore::remove(const std::vector<std::string>& searchPaths, const DeleteOptions& options) {
    refuseWhenReadOnly();
    return operate([&] {
        Transaction transaction(m_database);
        ObjectWriter writer(m_database, m_settings.seams);
        ObjectTable objects(m_database);
        std::vector<ObjectRow> rows;
        rows.reserve(searchPaths.size());
        for (const auto& searchPath : searchPaths)
            rows.push_back(writer.resolve(searchPath));
        std::int64_t removed = 0;
        for (const auto& row : rows)
            if (objects.byId(row.id)) // not gone with one before it
                removed += writer.remove(row, options);
        transaction.commit();
        return removed;
    });
}

} // namespace mrl::bus
