#include "Toolkit/MRLAccount.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLPolicyArray.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLSchemaTypeRows.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "support/Failure.h"

#include "HBLCore/HBLSmartPointer.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Type = MRLSchemaTypeI;

constexpr std::uint32_t notCreatable = 0xA647EC7B;

MRLSchemaTypesFactory& factory() {
    return MRLSchemaTypesFactory::getInstance();
}

TEST(SchemaTypesFactory, ClassifiesNumbersByRangeAlone) {
    const struct {
        int type;
        int generated;
        int string;
        int base64;
    } rows[] = {
        {0, 1, 0, 0},
        {1, 0, 1, 0},
        {2, 0, 0, 0},
        {5, 0, 1, 0},
        {6, 0, 1, 0},
        {7, 0, 0, 0},
        {8, 0, 0, 1},
        {9, 0, 0, 0},
        {10, 0, 1, 0},
        {11, 0, 1, 0},
        {12, 1, 0, 0},
        {15, 1, 0, 0},
        {99, 1, 0, 0},
        {-1, 1, 0, 0},
        {Type::eMRLNameValue, 1, 0, 0},
        {Type::eCharStreamable, 0, 1, 0},
    };
    for (const auto& row : rows) {
        const auto type = static_cast<Type::ObjectType>(row.type);
        EXPECT_EQ(MRLSchemaTypesFactory::isGeneratedType(type), row.generated) << row.type;
        EXPECT_EQ(MRLSchemaTypesFactory::isString(type), row.string) << row.type;
        EXPECT_EQ(MRLSchemaTypesFactory::isBase64(type), row.base64) << row.type;
    }
}

TEST(SchemaTypesFactory, FindsTypesByTheirNames) {
    const struct {
        const char* name;
        int qualified;
        int unqualified;
    } rows[] = {
        {"bus:nameValue", static_cast<int>(0xC625DD5Cu), 0},
        {"nameValue", 0, static_cast<int>(0xC625DD5Cu)},
        {"xs:string", 1, 0},
        {"string", 0, 1},
        {"anyType", 0, 11},
        {"MRLSOAPFault", 0, 0},
        {"bus:", 0, 0},
        {"bus:nameValues", 0, 0},
        {"", 0, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(factory().xsiTypeToObjectType(row.name), row.qualified) << row.name;
        EXPECT_EQ(factory().stringToObjectType(row.name), row.unqualified) << row.name;
    }
    EXPECT_EQ(factory().stringToObjectType(nullptr), 0);
}

TEST(SchemaTypesFactory, HandWrittenTypesCarryClassNamesAndAreNotCopied) {
    const std::unique_ptr<MRLSchemaTypeI> unknown(factory().create(Type::e_Unknown));
    EXPECT_EQ(unknown->getObjectType(), Type::e_Unknown);
    const std::unique_ptr<MRLSchemaTypeI> fault(factory().create(Type::eMRLSOAPFault));
    EXPECT_STREQ(factory().objectTypeToXSIType(Type::eMRLSOAPFault), "MRLSOAPFault");
    HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistry::create());
    expectFailure([&] { factory().createCopy(*fault, *registry); }, notCreatable, {"MRLSOAPFault"},
                  "MRLSchemaTypesFactory::createCopy()");
}

TEST(SchemaTypesFactory, NamesWhatItCannotMake) {
    const struct {
        Type::ObjectType type;
        const char* name;
    } rows[] = {{Type::eMRLBaseClass, "bus:baseClass"},
                {Type::eString, "xs:string"},
                {Type::eMRLZOR_Unsupported, "MRLUnknownSchemaType"},
                {static_cast<Type::ObjectType>(99), "MRLUnknownSchemaType"}};
    for (const auto& row : rows)
        expectFailure([&] { factory().create(row.type); }, notCreatable, {row.name});

    expectAssert([] { factory().objectTypeToXSIType(Type::e_Unknown); },
                 "HBL_ASSERT(objType != MRLSchemaTypeI::e_Unknown);");
    const char* const unknown = "HBL_ASSERT_NAMED(FALSE, \"MRLSchemaTypesFactory::objectTypeToXSIType(): "
                                "unknown object type.\");";
    for (const int number :
         {99, static_cast<int>(Type::eMRLZOR_Unsupported), static_cast<int>(Type::eCharStreamable)})
        expectAssert([&] { factory().objectTypeToXSIType(static_cast<Type::ObjectType>(number)); }, unknown);
    expectAssert(
        [] { MRLSchemaTypesFactory::typeError("a", "b", Type::eString, static_cast<Type::ObjectType>(99)); },
        unknown);
}

TEST(SchemaTypesFactory, WritesAndReadsTheTypesOfArrays) {
    MRLPolicyArray array;
    std::string text;
    factory().objectTypeToArrayType(Type::eMRLPolicyArray, &array, text);
    EXPECT_EQ(text, "bus:policy[0]");
    for (int i = 0; i < 12; ++i)
        array.push_back(nullptr);
    factory().objectTypeToArrayType(Type::eMRLPolicyArray, &array, text);
    EXPECT_EQ(text, "bus:policy[12]");
    factory().objectTypeToArrayType(Type::eMRLStringArray, nullptr, text);
    EXPECT_EQ(text, "xs:string[]");

    EXPECT_EQ(factory().arrayTypeToObjectType(u"bus:policy[]"), Type::eMRLPolicyArray);
    EXPECT_EQ(factory().arrayTypeToObjectType(u"bus:baseClass[]"), Type::eMRLBaseClassArray);
    for (const char16_t* unknown : {u"xs:string[]", u"bus:string[]", u"bus:policy", u"bus:[]", u"",
                                    u"bus:p\u00F6licy[]", u"bus:policy[3]"})
        expectAssert([&] { factory().arrayTypeToObjectType(unknown); },
                     "HBL_ASSERT_NAMED(FALSE, \"MRLSchemaTypesFactory::arrayTypeToObjectType(): unknown "
                     "xsi:type: \");");
    expectAssert([] { factory().arrayTypeToObjectType(nullptr); }, "HBL_ASSERT(arrayType);");
    expectAssert([&] { factory().objectTypeToArrayType(Type::eMRLPolicy, &array, text); },
                 "HBL_ASSERT_NAMED(FALSE, \"MRLSchemaTypesFactory::objectTypeToArrayType(): unknown object "
                 "type.\");");
    EXPECT_FALSE(factory().isArrayType(Type::e_Unknown));
    EXPECT_FALSE(factory().isArrayType(Type::eMRLUndocumentedFaultDetailArray));
}

TEST(SchemaTypesFactory, CopiersRefuseAnotherClass) {
    HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistry::create());
    const MRLPolicyArray other;
    expectAssert([&] { mrl::detail::copySchemaType<MRLAccount>(other, *registry); },
                 "HBL_ASSERT(obj.isa(MRLSchemaTypeI::eMRLAccount));");
}

} // namespace
