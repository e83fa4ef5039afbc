// What holds for every type of the catalogue.

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypeRows.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_String.h"
#include "support/Failure.h"

#include "HBLCore/HBLSmartPointer.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace {

using Type = MRLSchemaTypeI::ObjectType;
using mrl::detail::SchemaTypeRow;

MRLSchemaTypesFactory& factory() {
    return MRLSchemaTypesFactory::getInstance();
}

std::span<const SchemaTypeRow> rows() {
    return {mrl::detail::g_schemaTypes.rows, mrl::detail::g_schemaTypes.count};
}

class Catalogue : public testing::Test {
protected:
    /// A new object of `type`, or of the first concrete type derived from it.
    MRLSchemaTypeI* make(Type type) {
        for (const SchemaTypeRow& row : rows()) {
            if (row.type != type || row.create != nullptr)
                continue;
            for (const SchemaTypeRow& other : rows())
                if (other.create != nullptr) {
                    std::unique_ptr<MRLSchemaTypeI> object(factory().create(other.type));
                    if (object->isa(type) != 0)
                        return adopt(object.release());
                }
            return nullptr;
        }
        return adopt(factory().create(type));
    }

    MRLSchemaTypeI* adopt(MRLSchemaTypeI* object) {
        registry->registerPointer(object);
        return object;
    }

    /// A value that fits a child of the declared type, and the type it has.
    void* valueFor(Type declared, Type& actual) {
        actual = declared;
        switch (declared) {
        case MRLSchemaTypeI::eString: {
            auto* text = new MRL_String;
            registry->registerPointer(text);
            text->append("text");
            return text;
        }
        case MRLSchemaTypeI::eBase64Binary: {
            auto* binary = new MRLBase64Binary("bytes", 5);
            registry->registerPointer(binary);
            return binary;
        }
        case MRLSchemaTypeI::eInt:
        case MRLSchemaTypeI::eInteger:
        case MRLSchemaTypeI::eBoolean: return &m_number;
        case MRLSchemaTypeI::eDecimal:
        case MRLSchemaTypeI::eFloat: return &m_decimal;
        default: break;
        }
        MRLSchemaTypeI* object = make(declared);
        if (object != nullptr)
            actual = object->getObjectType();
        return object;
    }

    /// Whether `stored`, as it is read, is what valueFor() gave.
    static bool holds(Type declared, const void* stored, void* given) {
        switch (declared) {
        case MRLSchemaTypeI::eString: return stored == static_cast<MRL_String*>(given)->str();
        case MRLSchemaTypeI::eInt:
        case MRLSchemaTypeI::eInteger:
        case MRLSchemaTypeI::eBoolean: return stored != nullptr && *static_cast<const int*>(stored) == 1;
        case MRLSchemaTypeI::eDecimal:
        case MRLSchemaTypeI::eFloat: return stored != nullptr && *static_cast<const double*>(stored) == 1.5;
        default: return stored == given;
        }
    }

    /// Gives a child its value by name, or an array member its first element.
    void fill(MRLSchemaTypeI& object, const char* name, Type declared) {
        Type actual{};
        void* const value = valueFor(declared, actual);
        ASSERT_NE(value, nullptr) << "nothing fits";
        if (factory().isArrayType(declared) == 0) {
            ASSERT_EQ(object.setChildObject(name, value, actual, nullptr), 0u);
            ASSERT_TRUE(holds(declared, object.getChildObject(name, 0), value));
            return;
        }
        EXPECT_THROW(object.setChildObject(name, value, actual, nullptr), HBLAssertError);
        auto* array = static_cast<MRLSchemaTypeI*>(object.getChildObject(name, 1));
        ASSERT_NE(array, nullptr);
        ASSERT_EQ(array->getObjectType(), declared);
        const Type element = array->getChildType("0");
        void* const item =
            valueFor(element == MRLSchemaTypeI::eDateTime ? MRLSchemaTypeI::eString : element, actual);
        ASSERT_EQ(array->setChildObject("item", item, actual, nullptr), 1u);
    }

    HBLSmartPointer<MRLObjectRegistryI> registry{MRLObjectRegistry::create()};

private:
    int m_number = 1;
    float m_decimal = 1.5F;
};

bool isEnum(const SchemaTypeRow& row) {
    return std::string_view(row.xsiName).ends_with("Enum");
}

TEST_F(Catalogue, EveryChildOfEveryClassIsSetReadAndCopiedByItsName) {
    std::size_t children = 0;
    for (const SchemaTypeRow& row : rows()) {
        if (row.create == nullptr || row.elementXsiName != nullptr || isEnum(row))
            continue;
        SCOPED_TRACE(row.xsiName);
        MRLSchemaTypeI& object = *make(row.type);
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
        const MRLSchemaTypeI& copy = factory().createCopy(object, *registry);
        for (const char* name : names) {
            const void* mine = object.getChildObject(name, 0);
            const void* its = const_cast<MRLSchemaTypeI&>(copy).getChildObject(name, 0);
            EXPECT_NE(its, nullptr) << name;
            EXPECT_NE(its, mine) << name << " is shared with the copy";
        }
        EXPECT_EQ(object.getChildObject("no such name", 1), nullptr);
        EXPECT_EQ(object.isa(MRLSchemaTypeI::e_Unknown), 0);
        EXPECT_STREQ(object.getGeneratedObjectName().c_str() + 4, row.xsiName + 5)
            << "but for the first letter";
        registry->clean();
    }
    EXPECT_GT(children, 2000u) << "the walk is not empty";
}

} // namespace
