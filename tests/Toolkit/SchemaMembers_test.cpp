// The members of generated classes, one class for each kind.

#include "Toolkit/MRLAccount.h"
#include "Toolkit/MRLBase64BinaryProp.h"
#include "Toolkit/MRLBooleanProp.h"
#include "Toolkit/MRLDecimalProp.h"
#include "Toolkit/MRLMultilingualString.h"
#include "Toolkit/MRLMultilingualStringArray.h"
#include "Toolkit/MRLMultilingualStringProp.h"
#include "Toolkit/MRLNameValue.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLQuadrixServiceSpecificationProp.h"
#include "Toolkit/MRLSchemaInfo.h"
#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_String.h"
#include "support/Failure.h"
#include "support/Table.h"

#include "HBLCore/HBLSmartPointer.h"

namespace {

constexpr std::uint32_t typeError = 0xA647C21F;

class Members : public testing::Test {
protected:
    MRL_String& text(const char* chars) {
        auto* string = new MRL_String;
        registry->registerPointer(string);
        string->append(chars);
        return *string;
    }

    template <class T>
    T& copyOf(const T& object, MRLObjectRegistryI& into) {
        return static_cast<T&>(MRLSchemaTypesFactory::getInstance().createCopy(object, into));
    }

    HBLSmartPointer<MRLObjectRegistryI> registry{MRLObjectRegistry::create()};
};

TEST_F(Members, TextIsKeptAsAPointerNotAsACopy) {
    MRLNameValue object;
    MRL_String& name = text("a");
    EXPECT_EQ(object.setChildObject("name", &name, MRLSchemaTypeI::eString, nullptr), 0u);
    EXPECT_EQ(object.getName(), name.str());
    EXPECT_EQ(object.getChildObject("name", 0), name.str());
    EXPECT_EQ(object.getChildObject("name", 1), name.str());

    const MRL_CharStreamable large;
    object.setChildObject("value", const_cast<char*>(large.asCharStar()), MRLSchemaTypeI::eCharStreamable,
                          nullptr);
    EXPECT_EQ(object.getValue(), large.asCharStar());
}

TEST_F(Members, NumbersAreSetByNameByReaderAndByHand) {
    MRLSchemaInfo object;
    EXPECT_EQ(object.getChildObject("acquirable", 0), nullptr);
    *static_cast<int*>(object.getChildObject("acquirable", 1)) = 1;
    EXPECT_EQ(*object.getAcquirable(), 1);

    int zero = 0;
    object.setChildObject("acquirable", &zero, MRLSchemaTypeI::eBoolean, nullptr);
    EXPECT_EQ(object.getChildObject("acquirable", 0), object.getAcquirable());
    EXPECT_EQ(*object.getAcquirable(), 0);
    object.resetAcquirable();
    EXPECT_EQ(object.getAcquirable(), nullptr);
}

TEST_F(Members, ANumberThatWasSetAndResetDiffersFromOneThatNeverWas) {
    MRLSchemaInfo untouched;
    MRLSchemaInfo object;
    object.setAcquirable(0);
    EXPECT_TRUE(object != untouched);
    object.resetAcquirable();
    EXPECT_TRUE(object == untouched) << "both hold 0";
    object.setAcquirable(1);
    object.resetAcquirable();
    EXPECT_TRUE(object != untouched);
}

TEST_F(Members, DecimalsAreReadIn32BitsAndWrittenIn64) {
    MRLDecimalProp object;
    *static_cast<float*>(object.getChildObject("value", 1)) = 1.5F;
    EXPECT_EQ(*static_cast<double*>(object.getChildObject("value", 0)), 1.5);
    object.setValue(0.25F);
    EXPECT_EQ(*static_cast<double*>(object.getChildObject("value", 0)), 0.25);
    EXPECT_EQ(*object.getValue(), 0.25F);
    object.resetValue();
    EXPECT_EQ(object.getChildObject("value", 0), nullptr);
}

TEST_F(Members, LazyGettersMakeOnceAndReadersMakeNothing) {
    MRLAccount object;
    EXPECT_EQ(object.getDefaultDescription(nullptr), nullptr);
    EXPECT_EQ(object.getDefaultDescription(), nullptr);
    MRLStringProp* made = object.getDefaultDescription(registry.get());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(object.getDefaultDescription(registry.get()), made);
    EXPECT_EQ(object.getChildObject("defaultDescription", 0), made);

    MRLQuadrixServiceSpecificationProp abstract;
    EXPECT_EQ(abstract.getValue(nullptr), nullptr);
    expectAssert([&] { abstract.getValue(registry.get()); },
                 "HBL_ASSERT_NAMED(FALSE, \"Creation on get not supported on abstract types\");");

    MRLBase64BinaryProp binary;
    EXPECT_EQ(binary.getValue(nullptr), nullptr);
    MRLBase64Binary* bytes = binary.getValue(registry.get());
    EXPECT_EQ(binary.getValue(registry.get()), bytes);
}

TEST_F(Members, UnknownAndEmptyNamesDoNothing) {
    MRLNameValue object;
    MRL_String& value = text("a");
    EXPECT_EQ(object.getChildObject("unknown", 1), nullptr);
    EXPECT_EQ(object.getChildType("unknown"), MRLSchemaTypeI::e_Unknown);
    EXPECT_EQ(object.setChildObject("unknown", &value, MRLSchemaTypeI::eString, nullptr), 0u);
    EXPECT_EQ(object.setChildObject("", nullptr, MRLSchemaTypeI::eString, nullptr), 0u);
    EXPECT_TRUE(object == MRLNameValue());
}

TEST_F(Members, RefuseWhatIsMissing) {
    MRLNameValue object;
    MRL_String& value = text("a");
    expectAssert([&] { object.getChildObject(nullptr, 0); }, "HBL_ASSERT(name);");
    expectAssert([&] { object.getChildType(nullptr); }, "HBL_ASSERT(name);");
    expectAssert([&] { object.setChildObject(nullptr, &value, MRLSchemaTypeI::eString, nullptr); },
                 "HBL_ASSERT(name);");
    expectAssert([&] { object.setChildObject("name", nullptr, MRLSchemaTypeI::eString, nullptr); },
                 "HBL_ASSERT(obj != NULL);");
}

TEST_F(Members, RefuseAWrongTypeInTheNameOfTheLevelThatDeclaresIt) {
    MRLNameValue nameValue;
    MRLAccount account;
    MRLBooleanProp boolean;
    MRLBase64BinaryProp binary;
    MRL_String& string = text("1");
    const struct {
        MRLSchemaTypeI& object;
        const char* name;
        void* value;
        MRLSchemaTypeI::ObjectType type;
        const char* parameters;
    } rows[] = {{nameValue, "name", &string, MRLSchemaTypeI::eInt, "nameValue|name|xs:string|xs:int"},
                {account, "defaultDescription", &nameValue, MRLSchemaTypeI::eMRLNameValue,
                 "uiClass|defaultDescription|bus:stringProp|bus:nameValue"},
                {binary, "value", &string, MRLSchemaTypeI::eString,
                 "base64BinaryProp|value|xs:base64Binary|xs:string"},
                {boolean, "schemaInfo", &nameValue, MRLSchemaTypeI::eMRLNameValue,
                 "baseProp|schemaInfo|bus:schemaInfo|bus:nameValue"}};
    for (const auto& row : rows)
        expectFailure([&] { row.object.setChildObject(row.name, row.value, row.type, nullptr); }, typeError,
                      mrl::test::split(row.parameters, "|"), "MRLSchemaTypesFactory::typeError()");
}

TEST_F(Members, ArrayMembersAreFilledInPlaceOnly) {
    MRLMultilingualStringProp object;
    EXPECT_EQ(object.getChildObject("value", 1), static_cast<MRLSchemaTypeI*>(&object.getValue()));
    MRLMultilingualStringArray array;
    expectAssert(
        [&] { object.setChildObject("value", &array, MRLSchemaTypeI::eMRLMultilingualStringArray, nullptr); },
        "HBL_ASSERT_NAMED(FALSE, \"The 'value' element cannot be set through the "
        "'MRLMultilingualStringProp::setChildObject()' method.\");");
}

TEST_F(Members, CopiesOwnAllThatTheyHoldAndOutliveTheOriginal) {
    HBLSmartPointer<MRLObjectRegistryI> kept(MRLObjectRegistry::create());
    MRLAccount* copy = nullptr;
    {
        MRLAccount original;
        original.getDefaultDescription(registry.get())->setValue("described");
        original.getHidden(registry.get())->setValue(1);
        original.getName(registry.get());
        copy = &copyOf(original, *kept);
        EXPECT_TRUE(original == *copy);
        registry->clean();
    }
    EXPECT_STREQ(copy->getDefaultDescription()->getValue(), "described");
    EXPECT_EQ(*copy->getHidden()->getValue(), 1);
    EXPECT_EQ(copy->getSearchPath(), nullptr);
}

TEST_F(Members, CopiesOfBinaryDataAreDeepAndOfStreamedTextShareTheStream) {
    MRLBase64BinaryProp binary;
    binary.getValue(registry.get())->append("bytes", 5);
    const MRLBase64BinaryProp& copy = copyOf(binary, *registry);
    EXPECT_TRUE(copy == binary);
    EXPECT_NE(copy.getValue()->str(), binary.getValue()->str());
    binary.getValue()->append("!", 1);
    EXPECT_TRUE(copy != binary);

    MRL_CharStreamable large;
    large.initialize("data", 0);
    MRLNameValue text;
    text.setName(large.asCharStar());
    const MRLNameValue& shared = copyOf(text, *registry);
    EXPECT_NE(shared.getName(), text.getName());
    EXPECT_STREQ(MRL_CharStreamable(shared.getName()).getData(), "data");
}

TEST_F(Members, AreEqualByContentsAndByThePlaceInTheHierarchy) {
    char first[] = "a";
    char second[] = "a";
    MRLNameValue a;
    MRLNameValue b;
    a.setName(first);
    b.setName(second);
    EXPECT_TRUE(a == b);
    b.setValue("");
    EXPECT_TRUE(a != b) << "an absent text and an empty one";
    EXPECT_TRUE(a == a);
    EXPECT_TRUE(MRLStringProp() == MRLStringProp());
    EXPECT_TRUE(MRLStringProp() != MRLBooleanProp());
}

/// A class derived from a generated one, as the generated tree has many of.
class Derived : public MRLNameValue {
public:
    int isa(ObjectType type) const override {
        return type == static_cast<ObjectType>(0x7FFFFFF0) ? 1 : MRLNameValue::isa(type);
    }
    int operator==(const MRLSchemaTypeI& other) const override {
        return other.isa(static_cast<ObjectType>(0x7FFFFFF0)) != 0 && MRLNameValue::operator==(other) != 0;
    }
    int operator!=(const MRLSchemaTypeI& other) const override { return operator==(other) != 0 ? 0 : 1; }
};

TEST_F(Members, EqualityHoldsFromTheBaseToTheDerivedAndNotBack) {
    const MRLNameValue base;
    const Derived derived;
    EXPECT_TRUE(base == derived);
    EXPECT_FALSE(derived == base);
    EXPECT_TRUE(derived != base);
}

} // namespace
