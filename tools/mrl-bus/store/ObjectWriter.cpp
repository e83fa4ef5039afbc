#include "store/ObjectWriter.h"

#include "store/Database.h"
#include "store/ObjectReader.h"
#include "store/PropertyRules.h"
#include "store/SearchPath.h"
#include "store/Selection.h"
#include "store/StoreError.h"
#include "store/StoreSeams.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mrl::bus {

namespace {

constexpr std::size_t maxNameLength = 512;
constexpr const char* defaultLocale = "en";

[[noreturn]] void refuse(StoreErrorCode code, const std::string& message) {
    throw StoreError(code, message);
}

void requireWrite(const ObjectRow& row, const char* doing) {
    if (!has(row.rights, Right::write))
        refuse(StoreErrorCode::noWrite, "You have no right to " + std::string(doing) + " " +
                                            row.searchPath() + "; ask its owner for write permission.");
}

std::string checkedName(const std::string& name) {
    if (name.empty())
        refuse(StoreErrorCode::badName, "An object needs a name: set defaultName or name.");
    if (name.size() > maxNameLength)
        refuse(StoreErrorCode::badName, "A name has " + std::to_string(name.size()) + " bytes; at most " +
                                            std::to_string(maxNameLength) + " are accepted.");
    const bool control =
        std::ranges::any_of(name, [](char c) { return static_cast<unsigned char>(c) < 0x20; });
    if (control)
        refuse(StoreErrorCode::badName, "A name holds a control character; remove it.");
    return name;
}

/// The text of the default locale, or else the first.
std::string pickText(const std::vector<LocalText>& texts) {
    const auto found = std::ranges::find(texts, defaultLocale, &LocalText::locale);
    if (found != texts.end())
        return found->text;
    return texts.empty() ? std::string() : texts.front().text;
}

/// defaultName when it says something new, otherwise the pick from name; `before` when neither is there.
std::string wantedName(const StoreObject& object, const std::string& before) {
    if (object.properties.contains("defaultName")) {
        const auto* given = object.get<std::string>("defaultName");
        const std::string name = given != nullptr ? *given : std::string();
        if (name != before)
            return checkedName(name);
    }
    if (object.properties.contains("name")) {
        const auto* names = object.get<std::vector<LocalText>>("name");
        return checkedName(names != nullptr ? pickText(*names) : std::string());
    }
    return before;
}

void checkClass(const std::string& objectClass) {
    const bool plain =
        !objectClass.empty() && objectClass.size() <= 100 && std::ranges::all_of(objectClass, [](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        });
    if (!plain || objectClass == "root")
        refuse(StoreErrorCode::badClass, "Objects of the class '" + objectClass +
                                             "' cannot be kept in the store; give a class of content such as "
                                             "folder or report.");
}

bool equal(const PropertyValue& left, const PropertyValue& right) {
    const auto* leftObjects = std::get_if<References>(&left);
    const auto* rightObjects = std::get_if<References>(&right);
    if (leftObjects == nullptr || rightObjects == nullptr)
        return left == right;
    return std::ranges::equal(*leftObjects, *rightObjects, {}, &StoreObject::searchPath,
                              &StoreObject::searchPath);
}

} // namespace

ObjectWriter::ObjectWriter(Database& database, const StoreSeams& seams, DeadReference deadReference)
    : m_database(database)
    , m_seams(seams)
    , m_deadReference(deadReference)
    , m_objects(database)
    , m_properties(database) {}

ObjectRow ObjectWriter::resolve(const std::string& searchPath) {
    const auto exact = exactPath(SearchPath::parse(searchPath));
    if (!exact)
        refuse(StoreErrorCode::ambiguousPath,
               "The search path " + searchPath +
                   " selects objects by a rule, and one object must be named; give each step as "
                   "class[@name='...'].");
    auto row = m_objects.byPath(*exact);
    if (!row)
        refuse(StoreErrorCode::notFound,
               "There is no object " + searchPath + "; check the class and the name in each step.");
    return std::move(*row);
}

ObjectRow ObjectWriter::add(const ObjectRow& parent, const StoreObject& object, const AddOptions& options) {
    requireWrite(parent, "add objects to");
    const std::string name = wantedName(object, {});
    if (const auto existing = m_objects.byName(parent.id, checkedName(name))) {
        const bool sameClass = existing->objectClass == object.objectClass;
        if (options.clash == NameClash::fail || (options.clash == NameClash::update && !sameClass))
            refuse(StoreErrorCode::nameInUse,
                   parent.searchPath() + " already holds an object named '" + name + "', of the class " +
                       existing->objectClass +
                       "; choose another name, or add with the update action replace or update.");
        if (options.clash == NameClash::update)
            return update(*existing, object);
        remove(*existing, {.recursive = true, .keepReferenced = options.keepReferenced});
    }
    return place(parent, object, has(parent.rights, Right::traverse) ? parent.rights : noRights);
}

ObjectRow ObjectWriter::place(const ObjectRow& parent, const StoreObject& object, Rights rights) {
    checkClass(object.objectClass);
    ObjectRow row;
    row.parent = parent.id;
    row.storeId = m_seams.newId();
    row.objectClass = object.objectClass;
    row.name = wantedName(object, {});
    row.path = parent.childPath(row.objectClass, row.name);
    if (row.path.size() > SearchPath::maxLength ||
        SearchPath::parse(row.path).branches.front().size() >= SearchPath::maxSteps)
        refuse(StoreErrorCode::tooMuch,
               "An object below " + parent.searchPath().substr(0, 200) +
                   " would be too deep, or its search path too long; add it higher up.");
    row.created = row.modified = m_seams.now();
    row.rights = rights;
    row.id = m_objects.insert(row);
    for (const auto& [property, value] : object.properties) {
        const auto* rule = findPropertyRule(property);
        if (rule == nullptr || property == "name")
            m_properties.set(row.id, property, value, m_objects, m_deadReference);
        else if (property != "defaultName")
            setBuiltIn(row, property, value);
    }
    setDefaultTexts(row, object);
    m_objects.update(row);
    return row;
}

ObjectRow ObjectWriter::update(const StoreObject& object) {
    const std::string path = object.searchPath();
    if (path.empty())
        refuse(StoreErrorCode::notFound, "An object to be updated has no searchPath; set it to say which "
                                         "object is meant.");
    ObjectRow row = resolve(path);
    if (row.objectClass != object.objectClass)
        refuse(StoreErrorCode::badClass, path + " is of the class " + row.objectClass + ", not " +
                                             object.objectClass +
                                             "; update it as an object of its own class.");
    return update(std::move(row), object);
}

ObjectRow ObjectWriter::update(ObjectRow row, const StoreObject& object) {
    requireWrite(row, "change");
    const std::string name = wantedName(object, row.name);
    for (const auto& [property, value] : object.properties) {
        const auto* rule = findPropertyRule(property);
        if (rule == nullptr || property == "name")
            m_properties.set(row.id, property, value, m_objects, m_deadReference);
        else if (!rule->writable)
            refuseChange(row, property, value);
        else if (property != "defaultName")
            setBuiltIn(row, property, value);
    }
    setDefaultTexts(row, object);
    if (name != row.name)
        rename(row, name);
    row.modified = m_seams.now();
    ++row.version;
    m_objects.update(row);
    return row;
}

void ObjectWriter::rename(ObjectRow& row, const std::string& name) {
    if (row.isFixture())
        refuse(StoreErrorCode::noWrite, row.searchPath() + " is part of the store and cannot be renamed.");
    if (m_objects.byName(*row.parent, name))
        refuse(StoreErrorCode::nameInUse, "The container of " + row.searchPath() +
                                              " already holds an object named '" + name +
                                              "'; choose another name.");
    const auto parent = m_objects.byId(*row.parent);
    const std::string before = std::exchange(row.path, parent->childPath(row.objectClass, name));
    if (row.path.size() > SearchPath::maxLength)
        refuse(StoreErrorCode::tooMuch,
               "With the new name the search path grows too long; choose a shorter one.");
    m_properties.replaceText(row.id, "name", row.name, name);
    row.name = name;
    m_objects.update(row); // frees the old path before those below move
    m_objects.movePaths(before, row.path);
}

void ObjectWriter::setDefaultTexts(const ObjectRow& row, const StoreObject& object) {
    constexpr std::array<std::pair<const char*, const char*>, 2> pairs{
        {{"description", "defaultDescription"}, {"screenTip", "defaultScreenTip"}}};
    for (const auto& [localized, plain] : pairs) {
        const auto* texts = object.get<std::vector<LocalText>>(localized);
        if (texts != nullptr && !object.properties.contains(plain))
            m_properties.set(row.id, plain, pickText(*texts), m_objects, m_deadReference);
        const auto* text = object.get<std::string>(plain);
        if (text != nullptr && !object.properties.contains(localized))
            m_properties.set(row.id, localized, std::vector<LocalText>{{defaultLocale, *text}}, m_objects,
                             m_deadReference);
    }
}

void ObjectWriter::setBuiltIn(ObjectRow& row, const std::string& name, const PropertyValue& value) {
    if (name == "disabled" || name == "hidden") {
        const auto* truth = std::get_if<bool>(&value);
        (name == "disabled" ? row.disabled : row.hidden) = truth != nullptr && *truth;
    } else if (name == "owner") {
        if (!has(row.rights, Right::setPolicy))
            refuse(StoreErrorCode::propertyNoPermission,
                   "You have no right to set the owner of " + row.searchPath() + "; leave it out.");
        const auto* owners = std::get_if<References>(&value);
        if (owners != nullptr && owners->size() > 1)
            refuse(StoreErrorCode::badProperty, "An object has one owner; give one account.");
        row.owner.reset();
        if (owners != nullptr && !owners->empty())
            row.owner = resolveOwner(owners->front().searchPath());
    } // the others are the store's: what a new object brings of them is passed over
}

std::optional<std::int64_t> ObjectWriter::resolveOwner(const std::string& searchPath) {
    try {
        return resolve(searchPath).id;
    } catch (const StoreError& e) {
        if (e.code() != StoreErrorCode::notFound || m_deadReference != DeadReference::drop)
            throw;
        return std::nullopt;
    }
}

void ObjectWriter::refuseChange(const ObjectRow& row, const std::string& name, const PropertyValue& value) {
    // A client may send back what it was given; only a change is refused.
    const StoreObject current = ObjectReader(m_database, {name}).read(row);
    const auto found = current.properties.find(name);
    const bool same = name == "searchPath" // it named the object
                      || std::holds_alternative<std::monostate>(value) ||
                      (found != current.properties.end() && equal(found->second, value));
    if (!same)
        refuse(StoreErrorCode::propertyNoPermission,
               "The property " + name + " of " + row.searchPath() + " is kept by the store; leave it out.");
}

std::int64_t ObjectWriter::remove(const ObjectRow& row, const DeleteOptions& options) {
    if (row.isFixture())
        refuse(StoreErrorCode::noWrite, row.searchPath() + " is part of the store and cannot be deleted.");
    requireDelete(row, options);
    if (options.keepReferenced)
        refuseReferenced(row);
    return m_objects.remove(row);
}

void ObjectWriter::requireDelete(const ObjectRow& row, const DeleteOptions& options) {
    const auto parent = m_objects.byId(*row.parent);
    const bool forced = options.force && has(parent->rights, Right::setPolicy);
    if (!forced)
        requireWrite(row, "delete");
    Statement below(m_database,
                    "SELECT path, rights FROM object WHERE path > ?1 || '/' AND path < ?1 || '0'");
    below.start(row.path);
    while (below.step()) {
        if (!options.recursive)
            refuse(StoreErrorCode::hasChildren, row.searchPath() +
                                                    " has children; delete them first, or delete with the "
                                                    "option recursive.");
        if (!forced && !has(static_cast<Rights>(below.integer(1)), Right::write))
            refuse(StoreErrorCode::noWrite, "You have no right to delete " + below.text(0) +
                                                ", which is below " + row.searchPath() +
                                                "; nothing was deleted.");
    }
}

void ObjectWriter::refuseReferenced(const ObjectRow& row) {
    // Who refers to the object or to one below it, and does not go with it.
    Statement referrer(m_database,
                       "WITH going (id) AS (SELECT id FROM object WHERE path = ?1 OR "
                       "path > ?1 || '/' AND path < ?1 || '0'), "
                       "referrer (id) AS (SELECT p.object FROM going JOIN property p ON p.target = going.id "
                       "UNION SELECT o.id FROM going JOIN object o ON o.owner = going.id) "
                       "SELECT path FROM object WHERE id IN referrer AND id NOT IN going LIMIT 1");
    if (referrer.start(row.path).step())
        refuse(StoreErrorCode::referenced, referrer.text(0) + " refers to " + row.searchPath() +
                                               " or to an object below it; change that first, or leave out "
                                               "the option faultIfObjectReferenced.");
}

} // namespace mrl::bus
