// What holds for every type of the catalogue.

#include "CatalogueValues.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "data/CatalogueData.h"
#include "data/LibraryComparison.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace {

using Type = MRLSchemaTypeI::ObjectType;
using mrl::detail::SchemaTypeRow;
using mrl::tool::equals;
using mrl::tool::TypeKind;
using mrl::tool::TypeRow;

class Catalogue : public testing::Test {
protected:
    /// Gives a child its value by name, or an array member its first element.
    void fill(MRLSchemaTypeI& object, const char* name, Type declared) {
        Type actual{};
        void* const value = values.valueFor(declared, actual);
        ASSERT_NE(value, nullptr) << "nothing fits";
        if (schemaTypesFactory().isArrayType(declared) == 0) {
            ASSERT_EQ(object.setChildObject(name, value, actual, nullptr), 0u);
            ASSERT_TRUE(CatalogueValues::holds(declared, object.getChildObject(name, 0), value));
            return;
        }
        EXPECT_THROW(object.setChildObject(name, value, actual, nullptr), HBLAssertError);
        auto* array = static_cast<MRLSchemaTypeI*>(object.getChildObject(name, 1));
        ASSERT_NE(array, nullptr);
        ASSERT_EQ(array->getObjectType(), declared);
        append(*array);
    }

    /// Adds an element to an array.
    void append(MRLSchemaTypeI& array) {
        const std::size_t size = static_cast<MRLSchemaTypeArrayI&>(array).size();
        const Type element = array.getChildType("0");
        Type actual{};
        void* const item =
            values.valueFor(element == MRLSchemaTypeI::eDateTime ? MRLSchemaTypeI::eString : element, actual);
        ASSERT_EQ(array.setChildObject("item", item, actual, nullptr), size + 1);
    }

    /// A new object of a type of the catalogue; `type` must be concrete.
    MRLSchemaTypeI& make(const TypeRow& type) { return *values.make(numberOf<Type>(type.name)); }

    CatalogueValues values;
};

bool isEnum(const SchemaTypeRow& row) {
    return std::string_view(row.xsiName).ends_with("Enum");
}

TEST_F(Catalogue, EveryChildOfEveryClassIsSetReadAndCopiedByItsName) {
    std::size_t children = 0;
    for (const SchemaTypeRow& row : schemaTypeRows()) {
        if (row.create == nullptr || row.elementXsiName != nullptr || isEnum(row))
            continue;
        SCOPED_TRACE(row.xsiName);
        MRLSchemaTypeI& object = *values.make(row.type);
        std::vector<const char*> names;
        object.getChildObjectNames(names, true);
        EXPECT_EQ(std::set<std::string_view>(names.begin(), names.end()).size(), names.size());
        children += names.size();
        for (const char* name : names) {
            SCOPED_TRACE(name);
            const Type declared = object.getChildType(name);
            ASSERT_NE(declared, MRLSchemaTypeI::e_Unknown);
            fill(object, name, declared);
            if (HasFatalFailure())
                return;
        }
        if (row.readMembers != nullptr) {
            std::vector<void*> members(names.size());
            EXPECT_TRUE(row.readMembers(object, members.data()));
            for (std::size_t i = 0; i < names.size(); ++i)
                EXPECT_EQ(members[i], object.getChildObject(names[i], 0)) << names[i];
        }
        const MRLSchemaTypeI& copy = schemaTypesFactory().createCopy(object, values.registry());
        for (const char* name : names) {
            const void* mine = object.getChildObject(name, 0);
            const void* its = const_cast<MRLSchemaTypeI&>(copy).getChildObject(name, 0);
            EXPECT_NE(its, nullptr) << name;
            EXPECT_NE(its, mine) << name << " is shared with the copy";
        }
        EXPECT_TRUE(equals(object, copy)) << "the copy is equal";
        EXPECT_TRUE(names.empty() || !equals(object, *values.make(row.type)))
            << "a filled object and an empty one";
        EXPECT_EQ(object.getChildObject("no such name", 1), nullptr);
        EXPECT_EQ(object.isa(MRLSchemaTypeI::e_Unknown), 0);
        EXPECT_STREQ(object.getGeneratedObjectName().c_str() + 4, row.xsiName + 5)
            << "but for the first letter";
        values.clean();
    }
    EXPECT_GT(children, 2000u) << "the walk is not empty";
}

TEST_F(Catalogue, EveryTypeIsFoundByItsNumberAndItsName) {
    MRLSchemaTypesFactory& factory = schemaTypesFactory();
    std::size_t concrete = 0;
    std::size_t abstract = 0;
    for (const TypeRow& row : mrl::tool::types()) {
        if (!row.travels)
            continue;
        SCOPED_TRACE(row.name);
        const auto type = numberOf<Type>(row.name);
        const std::string xsiName = std::string("bus:") + row.name;
        EXPECT_EQ(factory.objectTypeToXSIType(type), xsiName);
        EXPECT_EQ(factory.xsiTypeToObjectType(xsiName), type);
        EXPECT_EQ(factory.stringToObjectType(row.name), type);
        if (row.isAbstract) {
            expectFailure([&] { factory.create(type); }, 0xA647EC7B, {xsiName},
                          "MRLSchemaTypesFactory::create()");
            ++abstract;
            continue;
        }
        const MRLSchemaTypeI& object = make(row);
        const MRLSchemaTypeI& copy = factory.createCopy(object, values.registry());
        for (const MRLSchemaTypeI* made : {&object, &copy}) {
            EXPECT_EQ(made->getObjectType(), type);
            EXPECT_EQ(made->getGeneratedObjectName(), row.className);
            EXPECT_NE(made->isa(type), 0);
            EXPECT_TRUE(*row.parent == '\0' || made->isa(numberOf<Type>(row.parent)) != 0) << row.parent;
        }
        EXPECT_NE(&copy, &object);
        EXPECT_TRUE(equals(object, copy) && equals(copy, object));
        values.clean();
        ++concrete;
    }
    EXPECT_EQ(concrete, 866u);
    EXPECT_EQ(abstract, 67u);
}

TEST_F(Catalogue, EveryArrayKnowsItsElementsAndCountsThem) {
    MRLSchemaTypesFactory& factory = schemaTypesFactory();
    for (const TypeRow& row : mrl::tool::types()) {
        SCOPED_TRACE(row.name);
        const auto type = numberOf<Type>(row.name);
        EXPECT_EQ(factory.isArrayType(type) != 0, row.kind == TypeKind::array);
        if (row.kind != TypeKind::array)
            continue;
        auto& array = static_cast<MRLSchemaTypeArrayI&>(make(row));
        const bool ofClass = factory.xsiTypeToObjectType(std::string("bus:") + row.element) != 0;
        const std::string element = (ofClass ? "bus:" : "xs:") + std::string(row.element);
        for (const char* size : {"[0]", "[1]", "[2]"}) {
            std::string text;
            factory.objectTypeToArrayType(type, &array, text);
            EXPECT_EQ(text, element + size);
            const MRLSchemaTypeI& copy = factory.createCopy(array, values.registry());
            EXPECT_TRUE(equals(array, copy));
            append(array);
            EXPECT_FALSE(equals(array, copy)) << "one is longer";
        }
        const std::string arrayName = element + "[]";
        const std::u16string wide(arrayName.begin(), arrayName.end());
        if (ofClass)
            EXPECT_EQ(factory.arrayTypeToObjectType(wide.c_str()), type);
        else
            EXPECT_THROW(factory.arrayTypeToObjectType(wide.c_str()), HBLAssertError);
        values.clean();
    }
}

TEST_F(Catalogue, EveryValueOfEveryEnumerationIsSetReadAndCopied) {
    std::size_t count = 0;
    for (const TypeRow& row : mrl::tool::types()) {
        if (row.kind != TypeKind::enumeration || !row.travels)
            continue;
        MRLSchemaTypeI& object = make(row);
        const auto set = [&](const char* text) {
            object.setChildObject("any", values.text(text), MRLSchemaTypeI::eString, nullptr);
        };
        for (const char* value : row.values) {
            SCOPED_TRACE(std::string(row.name) + " " + value);
            const MRLSchemaTypeI& before = schemaTypesFactory().createCopy(object, values.registry());
            set(value);
            EXPECT_STREQ(static_cast<const char*>(object.getChildObject("any", 0)), value);
            EXPECT_TRUE(equals(object, schemaTypesFactory().createCopy(object, values.registry())));
            EXPECT_FALSE(equals(object, before));
            ++count;
        }
        expectFailure([&] { set("no such value"); }, 0xA645DC29, {"no such value"},
                      std::string(row.className) + "::stringToEnum()");
        values.clean();
    }
    EXPECT_GT(count, 1000u) << "the walk is not empty";
}

} // namespace
