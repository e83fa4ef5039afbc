#include "Toolkit/MRLAccount.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLPolicyArray.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLSchemaTypeRows.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "support/Failure.h"
#include "support/Table.h"

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
    for (const auto& row : mrl::test::plainTable("type_ranges.txt")) { // number, generated, text, binary
        const auto type =
            static_cast<Type::ObjectType>(static_cast<std::int32_t>(std::stoll(row[0], nullptr, 0)));
        EXPECT_EQ(MRLSchemaTypesFactory::isGeneratedType(type), std::stoi(row[1])) << row[0];
        EXPECT_EQ(MRLSchemaTypesFactory::isString(type), std::stoi(row[2])) << row[0];
        EXPECT_EQ(MRLSchemaTypesFactory::isBase64(type), std::stoi(row[3])) << row[0];
    }
    EXPECT_EQ(MRLSchemaTypesFactory::isString(Type::eCharStreamable), 1);
    EXPECT_EQ(MRLSchemaTypesFactory::isGeneratedType(Type::eCharStreamable), 0);
}

TEST(SchemaTypesFactory, FindsTypesByTheirNames) {
    for (const auto& row :
         mrl::test::plainTable("type_names.txt")) { // name, number by it with a prefix, and without
        const auto number = [&](std::size_t i) {
            return static_cast<std::int32_t>(std::stoll(row[i], nullptr, 0));
        };
        EXPECT_EQ(factory().xsiTypeToObjectType(row[0]), number(1)) << row[0];
        EXPECT_EQ(factory().stringToObjectType(row[0].c_str()), number(2)) << row[0];
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
