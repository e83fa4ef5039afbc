#include "Session/MRLTestInfo.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"
#include "support/Xml.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLSmartPointer.h"

#include <gmock/gmock.h>

namespace {

using Info = HBLSmartPointer<MRLTestInfo>;

TEST(TestInfo, JoinsAnOutputNameAndReplacesWhatNoFileNameShouldHold) {
    const struct {
        const char* report;
        const char* suffix;
        const char* locale;
        int multiLocale;
        std::string expected;
    } rows[] = {{"Sales: Q1/2", nullptr, nullptr, 0, "Sales__Q1_2"},
                {"r", "a b", "de-de", 1, "r_a_b_de-de"},
                {"r", "", "de-de", 0, "r"},
                {"a\\b", "", nullptr, 1, "a_b"}};
    for (const auto& row : rows) {
        const Info info(MRLTestInfo::create());
        info->setLocale(row.locale);
        info->setMultiLocale(row.multiLocale);
        std::string name = "before";
        info->generateOutputName(row.report, row.suffix, name);
        EXPECT_EQ(row.expected, name);
        info->setMultiThreaded(1);
        info->generateOutputName(row.report, row.suffix, name);
        EXPECT_TRUE(name.starts_with(row.expected + "_mt0x")) << name;
    }
}

TEST(TestInfo, HasTheDocumentedDefaults) {
    const Info info(MRLTestInfo::create());
    EXPECT_EQ(1060180744, info->getDateTime(5));
    info->activeDateTime();
    EXPECT_EQ(5, info->getDateTime(5));
    EXPECT_EQ(1, info->getRecordingInState() & info->getUseTestCssFile() & info->getSerializeCallStack());
    EXPECT_EQ(nullptr, info->getConcurrentQueryJobStateDump());
    expectAssert([&] { info->setConcurrentQueryJobStateDump(nullptr); }, "HBL_ASSERT(pDump);");
    info->setConcurrentQueryJobStateDump("");
    EXPECT_STREQ("", info->getConcurrentQueryJobStateDump());
}

struct ContentManagers : testing::Test {
    ~ContentManagers() override { HBLConfigurationFactory::deleteInstance(); }
    static void configure(const std::string& parameters) {
        HBLConfigurationFactory::deleteInstance();
        HBLConfigurationFactory::getInstance().configure(
            mrl::test::parsed(ConfigurationFile::withParameters(parameters)).getDocumentElement());
    }
    static void configureItems(const std::string& items) {
        configure(ConfigurationFile::parameter("contentManagers", items));
    }
    static std::string configured() {
        return HBLConfigurationFactory::getInstance().getProperty("contentManager").toUtf8();
    }
};

TEST_F(ContentManagers, AreReducedToTheFirstWithAWarning) {
    configureItems("<qzn:item>http://a.example/</qzn:item><qzn:item>http://b.example/</qzn:item>");
    testing::internal::CaptureStderr();
    MRLTestInfo::setContentManager();
    EXPECT_EQ("WARNING: Multiple content manager entries detected, defaulting to \"http://a.example/\"\n",
              testing::internal::GetCapturedStderr());
    EXPECT_EQ("http://a.example/", configured());

    configureItems("<qzn:item>http://c.example/</qzn:item>");
    testing::internal::CaptureStderr();
    MRLTestInfo::setContentManager();
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    EXPECT_EQ("http://c.example/", configured());
}

TEST_F(ContentManagers, MustBeThere) {
    configure("");
    expectAssert([] { MRLTestInfo::setContentManager(); }, "HBL_ASSERT(contentManagers.isNull() == FALSE);");
}

} // namespace
