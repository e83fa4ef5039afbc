#include "Toolkit/MRLAuditLevelEnum.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLSeverityEnum.h"
#include "Toolkit/MRL_String.h"
#include "support/Failure.h"

#include "HBLCore/HBLSmartPointer.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(Enums, AreTheCrcOfTheirText) {
    const struct {
        const char* text;
        std::uint32_t value;
    } rows[] = {
        {"", 0}, {"debug", 0x6CA547A7}, {"error", 0x5DDDBC71}, {"fatal", 0x38D0528F}, {"warn", 0x29BAB105}};
    for (const auto& row : rows) {
        const auto value = static_cast<MRLSeverityEnum::Enum>(row.value);
        EXPECT_EQ(MRLSeverityEnum::stringToEnum(row.text), value);
        EXPECT_STREQ(MRLSeverityEnum::enumToString(value), row.text);
        MRLSeverityEnum object;
        object.setValue(row.text);
        EXPECT_EQ(object.getValue(), value);
        EXPECT_STREQ(object.toString(), row.text);
    }
}

TEST(Enums, RefuseWhatIsNoValue) {
    for (const char* text : {"Error", "error ", "nothing"})
        expectFailure([&] { MRLSeverityEnum().setValue(text); }, 0xA645DC29, {text},
                      "MRLSeverityEnum::stringToEnum()");
    expectAssert([] { MRLSeverityEnum::stringToEnum(nullptr); }, "HBL_ASSERT(name);");
    expectAssert([] { MRLSeverityEnum::enumToString(static_cast<MRLSeverityEnum::Enum>(1)); },
                 "HBL_ASSERT(it!=m_enumToStringMap.end());");
}

TEST(Enums, AreReadFromTheTextOfTheirElement) {
    MRLSeverityEnum object;
    EXPECT_STREQ(static_cast<const char*>(object.getChildObject("", 0)), "");
    expectAssert(
        [&] { object.getChildObject("", 1); },
        "HBL_ASSERT_NAMED(m_value != MRLSeverityEnum::eRSOAMUninitialized, \"Enum not initialized.\");");

    MRL_String text;
    text.append(" error\n");
    EXPECT_EQ(object.setChildObject("", &text, MRLSchemaTypeI::eString, nullptr), 0u);
    EXPECT_STREQ(text.str(), "error");
    EXPECT_EQ(object.getValue(), MRLSeverityEnum::eError);
    EXPECT_EQ(*static_cast<std::uint32_t*>(object.getChildObject("", 1)), 0x5DDDBC71u);

    char plain[] = "warn";
    object.setChildObject("", plain, MRLSchemaTypeI::eCharStreamable, nullptr);
    EXPECT_EQ(object.getValue(), MRLSeverityEnum::eWarn);

    expectAssert([&] { object.setChildObject("", nullptr, MRLSchemaTypeI::eString, nullptr); },
                 "HBL_ASSERT(obj);");
    expectAssert([&] { object.setChildObject(nullptr, &text, MRLSchemaTypeI::eString, nullptr); },
                 "HBL_ASSERT(name);");
    expectFailure([&] { object.setChildObject("", &text, MRLSchemaTypeI::eInt, nullptr); }, 0xA647C21F,
                  {"severityEnum", "", "xs:string", "xs:int"});

    std::vector<const char*> names;
    object.getChildObjectNames(names, false);
    ASSERT_EQ(names.size(), 1u);
    EXPECT_STREQ(names[0], "");
    EXPECT_EQ(object.getChildType("anything"), MRLSchemaTypeI::eString);
}

TEST(Enums, AreComparedByTypeAndValueAndCopied) {
    HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistry::create());
    MRLSeverityEnum a;
    a.setValue(MRLSeverityEnum::eFatal);
    const MRLSchemaTypeI& copy = MRLSchemaTypesFactory::getInstance().createCopy(a, *registry);
    EXPECT_TRUE(a == copy);
    EXPECT_TRUE(a != MRLSeverityEnum());
    EXPECT_TRUE(MRLSeverityEnum() != MRLAuditLevelEnum()) << "both not initialized, but of two types";
    EXPECT_EQ(copy.getGeneratedObjectName(), "MRLSeverityEnum");
}

} // namespace
