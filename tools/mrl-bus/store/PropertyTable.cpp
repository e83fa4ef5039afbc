#include "store/PropertyTable.h"

#include "store/Database.h"
#include "store/SearchPath.h"
#include "store/Selection.h"
#include "store/StoreError.h"

namespace mrl::bus {

namespace {

/// Binds the parts of a value, one row each.
class RowWriter {
public:
    RowWriter(Statement& insert, std::int64_t object, const std::string& name, ObjectTable& objects,
              DeadReference deadReference)
        : m_insert(insert)
        , m_object(object)
        , m_name(name)
        , m_objects(objects)
        , m_deadReference(deadReference) {}

    void operator()(std::monostate) {}
    void operator()(const std::string& text) { put("text", std::nullopt, text); }
    void operator()(std::int64_t number) { put("integer", std::nullopt, number); }
    void operator()(bool truth) { put("boolean", std::nullopt, truth); }
    void operator()(double number) { put("decimal", std::nullopt, number); }

    void operator()(const Binary& binary) { put("binary", std::nullopt, BlobView{binary.bytes}); }

    void operator()(const std::vector<LocalText>& texts) {
        for (const auto& text : texts)
            put("localText", text.locale, text.text);
    }

    void operator()(const std::vector<std::string>& texts) {
        for (const auto& text : texts)
            put("texts", std::nullopt, text);
    }

    void operator()(const References& references) {
        for (const auto& reference : references)
            if (const auto target = resolve(reference.searchPath()))
                m_insert.run(m_object, m_name, m_position++, "reference", std::nullopt, std::nullopt,
                             *target);
    }

private:
    template <class Locale, class Value>
    void put(const char* kind, const Locale& locale, const Value& value) {
        m_insert.run(m_object, m_name, m_position++, kind, locale, value, std::nullopt);
    }

    std::optional<std::int64_t> resolve(const std::string& searchPath) {
        const auto exact = exactPath(SearchPath::parse(searchPath));
        const auto row = exact ? m_objects.byPath(*exact) : std::nullopt;
        if (!row && exact && m_deadReference == DeadReference::drop)
            return std::nullopt;
        if (!row)
            throw StoreError(exact ? StoreErrorCode::notFound : StoreErrorCode::ambiguousPath,
                             "The property " + m_name + " refers to " + searchPath +
                                 (exact ? ", which does not exist; add that object first."
                                        : ", which does not name one object; give its exact path."));
        return row->id;
    }

    Statement& m_insert;
    std::int64_t m_object;
    const std::string& m_name;
    ObjectTable& m_objects;
    DeadReference m_deadReference;
    std::int64_t m_position = 0;
};

} // namespace

PropertyTable::PropertyTable(Database& database)
    : m_database(database)
    , m_clear(database, "DELETE FROM property WHERE object = ? AND name = ?")
    , m_insert(database, "INSERT INTO property (object, name, position, kind, locale, value, target) "
                         "VALUES (?, ?, ?, ?, ?, ?, ?)") {}

void PropertyTable::set(std::int64_t object, const std::string& name, const PropertyValue& value,
                        ObjectTable& objects, DeadReference deadReference) {
    m_clear.run(object, name);
    std::visit(RowWriter(m_insert, object, name, objects, deadReference), value);
}

void PropertyTable::replaceText(std::int64_t object, std::string_view name, std::string_view before,
                                std::string_view now) {
    Statement(m_database, "UPDATE property SET value = ? WHERE object = ? AND name = ? AND value = ?")
        .run(now, object, name, before);
}

} // namespace mrl::bus
