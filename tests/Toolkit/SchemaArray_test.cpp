#include "Toolkit/MRLDateTimeArray.h"
#include "Toolkit/MRLIntArray.h"
#include "Toolkit/MRLNameValue.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLPolicy.h"
#include "Toolkit/MRLPolicyArray.h"
#include "Toolkit/MRLSchemaArray.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLUintString.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_String.h"
#include "support/Failure.h"
#include "support/Table.h"

#include "HBLCore/HBLSmartPointer.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::StrEq;

TEST(Arrays, AreWrittenFromOneAndReadFromZero) {
    MRLPolicyArray array;
    MRLPolicy policies[3];
    const auto type = MRLSchemaTypeI::eMRLPolicy;
    EXPECT_EQ(array.setChildObject("", &policies[0], type, nullptr), 0u);
    EXPECT_EQ(array.setChildObject("item", &policies[0], type, nullptr), 1u);
    EXPECT_EQ(array.setChildObject("item", &policies[1], type, nullptr), 2u);
    EXPECT_EQ(array.getChildObject("0", 0), &policies[0]);
    EXPECT_EQ(array.getChildObject("1", 0), &policies[1]);

    std::size_t place = 1;
    EXPECT_EQ(array.setChildObject("item", &policies[2], type, &place), 1u);
    EXPECT_THAT(array, ElementsAre(&policies[2], &policies[1]));
    for (const std::size_t wrong : {0, 3}) {
        place = wrong;
        expectAssert([&] { array.setChildObject("item", &policies[2], type, &place); },
                     "HBL_ASSERT(*idx > 0 && m_vector.size() >= *idx);");
    }
}

TEST(Arrays, RefuseNamesThatAreNoIndex) {
    MRLPolicyArray array;
    MRLPolicy policy;
    array.push_back(&policy);
    const char* const invalid = "HBL_ASSERT_NAMED(idx != 0, \"An invalid name was requested.\");";
    for (const char* name : {"x", "", "00"})
        expectAssert([&] { array.getChildObject(name, 0); }, invalid);
    for (const char* name : {"1", "-1", "99999999999999999999"})
        EXPECT_THROW(array.getChildObject(name, 0), std::out_of_range) << name;
    EXPECT_THROW(MRLPolicyArray().getChildObject("0", 0), std::out_of_range);
    expectAssert([&] { array.getChildObject(nullptr, 0); }, "HBL_ASSERT(name);");
    expectAssert([&] { array.setChildObject(nullptr, &policy, MRLSchemaTypeI::eMRLPolicy, nullptr); },
                 "HBL_ASSERT(name);");
    expectAssert([&] { array.setChildObject("0", nullptr, MRLSchemaTypeI::eMRLPolicy, nullptr); },
                 "HBL_ASSERT(obj != NULL);");
}

TEST(Arrays, RefuseElementsOfAnotherType) {
    MRLPolicyArray objects;
    MRLStringArray texts;
    MRLIntArray numbers;
    MRLNameValue object;
    MRL_String text;
    const struct {
        MRLSchemaTypeI& array;
        void* value;
        MRLSchemaTypeI::ObjectType type;
        const char* parameters;
    } rows[] = {
        {objects, &text, MRLSchemaTypeI::eString, "policyArray|item|bus:policy|xs:string"},
        {objects, &object, MRLSchemaTypeI::eMRLNameValue, "policyArray|item|bus:policy|bus:nameValue"},
        {texts, &text, MRLSchemaTypeI::eInt, "stringArray|item|xs:string|xs:int"},
        {numbers, &object, MRLSchemaTypeI::eMRLNameValue, "intArray|item|xs:int|bus:nameValue"}};
    for (const auto& row : rows)
        expectFailure([&] { row.array.setChildObject("item", row.value, row.type, nullptr); }, 0xA647C21F,
                      mrl::test::split(row.parameters, "|"));
}

TEST(Arrays, OfTextAndNumbersHoldTheirValues) {
    MRLStringArray texts;
    MRL_String text;
    text.append("a");
    texts.setChildObject("item", &text, MRLSchemaTypeI::eString, nullptr);
    const MRL_CharStreamable large;
    texts.setChildObject("item", const_cast<char*>(large.asCharStar()), MRLSchemaTypeI::eCharStreamable,
                         nullptr);
    EXPECT_THAT(texts, ElementsAre(text.str(), large.asCharStar()));
    EXPECT_EQ(texts.getChildObject("0", 0), text.str());

    MRLIntArray numbers;
    int seven = 7;
    numbers.setChildObject("item", &seven, MRLSchemaTypeI::eInt, nullptr);
    EXPECT_EQ(numbers.getChildObject("0", 0), &numbers.at(0));
    EXPECT_THAT(numbers, ElementsAre(7));

    EXPECT_EQ(texts.getChildType("0"), MRLSchemaTypeI::eString);
    EXPECT_EQ(numbers.getChildType("0"), MRLSchemaTypeI::eInt);
    EXPECT_EQ(MRLDateTimeArray().getChildType("0"), MRLSchemaTypeI::eDateTime);
    EXPECT_EQ(static_cast<std::uint32_t>(MRLPolicyArray().getChildType("0")), 0xF07D0516u);
}

TEST(Arrays, NameTheirElementsByNumber) {
    MRLIntArray array;
    for (const int n : {5, 6, 7})
        array.push_back(n);
    for (const bool reserve : {false, true}) {
        std::vector<const char*> names;
        array.getChildObjectNames(names, reserve);
        EXPECT_THAT(names, ElementsAre(StrEq("0"), StrEq("1"), StrEq("2")));
    }
    EXPECT_EQ(MRL_getUintStringResource(1000), MRL_getUintStringResource(1000));
    EXPECT_STREQ(MRL_getUintStringResource(1000), "1000");
    EXPECT_STREQ(MRL_getUintStringResource(1099), "1099");
    EXPECT_STREQ(MRL_getUintStringResource(0), "0");
}

TEST(Arrays, AreEqualElementByElementInOrder) {
    MRLPolicyArray a;
    MRLPolicyArray b;
    MRLPolicy first;
    MRLPolicy second;
    a.push_back(&first);
    a.push_back(nullptr);
    b.push_back(&second);
    EXPECT_TRUE(a != b);
    b.push_back(nullptr);
    EXPECT_TRUE(a == b);
    std::swap(b.at(0), b.at(1));
    EXPECT_TRUE(a != b);

    MRLStringArray texts;
    MRLStringArray others;
    EXPECT_TRUE(a != texts);
    char copy[] = "x";
    texts.push_back("x");
    others.push_back(copy);
    EXPECT_TRUE(texts == others);
    copy[0] = 'y';
    EXPECT_TRUE(texts != others);
}

TEST(Arrays, AreCopiedDeeply) {
    HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistry::create());
    MRLPolicyArray original;
    MRLPolicy policy;
    original.push_back(&policy);
    MRLSchemaTypeI& copy = MRLSchemaTypesFactory::getInstance().createCopy(original, *registry);
    EXPECT_TRUE(original == copy);
    EXPECT_NE(copy.getChildObject("0", 0), &policy);

    MRLStringArray texts;
    char text[] = "text";
    texts.push_back(text);
    const MRLStringArray copied(texts, *registry);
    text[0] = 'n';
    EXPECT_THAT(copied, ElementsAre(StrEq("text")));
}

} // namespace
