#include "Common/MRLException.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "count/Counting.h"
#include "count/Figures.h"
#include "data/CatalogueData.h"
#include "data/LibraryAccess.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace mrl::tool {

namespace {

using ObjectType = MRLSchemaTypeI::ObjectType;

MRLSchemaTypesFactory& factory() {
    return MRLSchemaTypesFactory::getInstance();
}

/// A type that the library knows by its name, and an object that answers for it.
struct KnownType {
    ObjectType type = MRLSchemaTypeI::e_Unknown;
    bool isAbstract = false;
    std::unique_ptr<MRLSchemaTypeI> object;
};

/// Null when the type is abstract.
std::unique_ptr<MRLSchemaTypeI> make(ObjectType type) {
    try {
        return std::unique_ptr<MRLSchemaTypeI>(factory().create(type));
    } catch (const MRLException&) {
        return nullptr;
    }
}

std::vector<KnownType> knownTypes() {
    std::vector<KnownType> known;
    for (const TypeRow& row : types()) {
        const std::string xsiName = std::string("bus:") + row.name;
        KnownType entry;
        entry.type = factory().xsiTypeToObjectType(xsiName);
        if (entry.type == MRLSchemaTypeI::e_Unknown || factory().objectTypeToXSIType(entry.type) != xsiName)
            continue;
        entry.object = make(entry.type);
        entry.isAbstract = entry.object == nullptr;
        if (entry.isAbstract)
            entry.object = makeStandIn(row.name);
        if (entry.object != nullptr && entry.object->isa(entry.type) != 0)
            known.push_back(std::move(entry));
    }
    return known;
}

enum class Family { classType, property, enumeration, objectArray, primitiveArray };

Family familyOf(const KnownType& known) {
    if (factory().isArrayType(known.type) != 0) {
        std::string text;
        factory().objectTypeToArrayType(known.type, nullptr, text);
        return text.starts_with("bus:") ? Family::objectArray : Family::primitiveArray;
    }
    if (known.object->isa(factory().xsiTypeToObjectType("bus:baseProp")) != 0)
        return Family::property;
    // An enumeration answers to any name with its text; a class knows the names of its members alone.
    return known.object->getChildType("no such member") == MRLSchemaTypeI::e_Unknown ? Family::classType
                                                                                     : Family::enumeration;
}

std::vector<const char*> memberNames(const KnownType& known) {
    std::vector<const char*> names;
    known.object->getChildObjectNames(names, true);
    return names;
}

/// The class among `classes` that `known` derives from directly: of all that it is an instance of, the
/// one that is an instance of all the others. Null at a root.
const KnownType* parentOf(const KnownType& known, const std::vector<const KnownType*>& classes) {
    const KnownType* parent = nullptr;
    for (const KnownType* other : classes)
        if (other != &known && known.object->isa(other->type) != 0 &&
            (parent == nullptr || other->object->isa(parent->type) != 0))
            parent = other;
    return parent;
}

/// The members of classes and wrappers; each counts once, where it is declared.
void countMembers(const std::vector<const KnownType*>& declaring, Figures& figures) {
    std::set<ObjectType> used;
    for (const KnownType* known : declaring) {
        const KnownType* parent = parentOf(*known, declaring);
        const std::vector<const char*> names = memberNames(*known);
        const std::size_t inherited = parent == nullptr ? 0 : memberNames(*parent).size();
        for (std::size_t i = inherited; i < names.size(); ++i) {
            const ObjectType declared = known->object->getChildType(names[i]);
            const std::string kind(valueKind(declared));
            if (familyOf(*known) == Family::classType)
                figures.add(kind + "Members", 1);
            if (kind != "object" || MRLSchemaTypesFactory::isBase64(declared) != 0)
                continue;
            used.insert(declared);
            figures.add("abstractGetters", isAbstract(declared) ? 1 : 0);
        }
    }
    figures.add("memberTypes", used.size());
}

} // namespace

std::string_view valueKind(ObjectType declared) {
    if (MRLSchemaTypesFactory::isString(declared) != 0)
        return "string";
    if (factory().isArrayType(declared) != 0)
        return "array";
    if (MRLSchemaTypesFactory::isGeneratedType(declared) != 0 ||
        MRLSchemaTypesFactory::isBase64(declared) != 0)
        return "object";
    return "nullable";
}

bool isAbstract(ObjectType type) {
    return make(type) == nullptr;
}

void countTypes(Figures& figures) {
    const std::vector<KnownType> known = knownTypes();
    std::vector<const KnownType*> declaring;
    for (const KnownType& type : known) {
        const Family family = familyOf(type);
        const bool isArray = family == Family::objectArray || family == Family::primitiveArray;
        figures.add("types", 1);
        figures.add("abstractTypes", type.isAbstract ? 1 : 0);
        figures.add("concreteTypes", type.isAbstract || isArray ? 0 : 1);
        figures.add("objectArrays", family == Family::objectArray ? 1 : 0);
        figures.add("primitiveArrays", family == Family::primitiveArray ? 1 : 0);
        figures.add("classes", family == Family::classType ? 1 : 0);
        figures.add("abstractClasses", family == Family::classType && type.isAbstract ? 1 : 0);
        figures.add("enums", family == Family::enumeration ? 1 : 0);
        figures.add("properties", family == Family::property && !type.isAbstract ? 1 : 0);
        if (family == Family::classType || family == Family::property)
            declaring.push_back(&type);
    }
    countMembers(declaring, figures);
}

void countValues(Figures& figures) {
    for (const TypeRow& row : types()) {
        const ValueTest test = row.kind == TypeKind::enumeration ? valueTest(row.name) : nullptr;
        if (test == nullptr)
            continue;
        figures.add("uriEnums", factory().stringToObjectType(row.name) == 0 ? 1 : 0);
        figures.add(row.name, static_cast<std::size_t>(std::ranges::count_if(row.values, test)));
    }
}

} // namespace mrl::tool
