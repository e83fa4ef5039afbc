#include "Common/MRLException.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "count/Counting.h"
#include "count/Figures.h"
#include "data/CatalogueData.h"
#include "data/LibraryAccess.h"

#include <algorithm>
#include <array>

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

/// Members by kind; each counts once, where it is declared.
void countMembers(const std::vector<const KnownType*>& classes, Figures& figures) {
    std::array<std::size_t, 4> counts{};
    for (const KnownType* known : classes) {
        const KnownType* parent = parentOf(*known, classes);
        const std::vector<const char*> names = memberNames(*known);
        const std::size_t inherited = parent == nullptr ? 0 : memberNames(*parent).size();
        for (std::size_t i = inherited; i < names.size(); ++i)
            ++counts[static_cast<std::size_t>(valueKind(known->object->getChildType(names[i])))];
    }
    figures.add("objectMembers", counts[static_cast<std::size_t>(ValueKind::object)]);
    figures.add("stringMembers", counts[static_cast<std::size_t>(ValueKind::text)]);
    figures.add("nullableMembers", counts[static_cast<std::size_t>(ValueKind::nullable)]);
    figures.add("arrayMembers", counts[static_cast<std::size_t>(ValueKind::array)]);
}

} // namespace

ValueKind valueKind(ObjectType declared) {
    if (MRLSchemaTypesFactory::isString(declared) != 0)
        return ValueKind::text;
    if (factory().isArrayType(declared) != 0)
        return ValueKind::array;
    if (MRLSchemaTypesFactory::isGeneratedType(declared) != 0 ||
        MRLSchemaTypesFactory::isBase64(declared) != 0)
        return ValueKind::object;
    return ValueKind::nullable;
}

void countTypes(Figures& figures) {
    const std::vector<KnownType> known = knownTypes();
    const auto count = [&](auto&& matches) {
        return static_cast<std::size_t>(std::ranges::count_if(known, matches));
    };
    const auto ofFamily = [&](Family family) {
        return count([&](const KnownType& type) { return familyOf(type) == family; });
    };
    std::vector<const KnownType*> classes;
    for (const KnownType& type : known)
        if (familyOf(type) == Family::classType)
            classes.push_back(&type);
    const std::size_t abstract = count([](const KnownType& type) { return type.isAbstract; });
    const std::size_t arrays = ofFamily(Family::objectArray) + ofFamily(Family::primitiveArray);

    figures.add("types", known.size());
    figures.add("abstractTypes", abstract);
    figures.add("concreteTypes", known.size() - abstract - arrays);
    figures.add("objectArrays", ofFamily(Family::objectArray));
    figures.add("primitiveArrays", ofFamily(Family::primitiveArray));
    figures.add("classes", classes.size());
    figures.add("abstractClasses", static_cast<std::size_t>(std::ranges::count_if(
                                       classes, [](const KnownType* type) { return type->isAbstract; })));
    figures.add("enums", ofFamily(Family::enumeration));
    figures.add("properties", count([](const KnownType& type) {
                    return !type.isAbstract && familyOf(type) == Family::property;
                }));
    countMembers(classes, figures);
}

} // namespace mrl::tool
