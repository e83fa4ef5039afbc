#include "Session/MRLTestInfo.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLIDOM/HBLIDOM_Parser.h"

#include <gmock/gmock.h>

namespace {

using Info = HBLSmartPointer<MRLTestInfo>;

struct OutputName {
    const char* report;
    const char* suffix;
    const char* locale;
    int multiLocale;
    const char* expected;
};

class OutputNames : public testing::TestWithParam<OutputName> {};

TEST_P(OutputNames, JoinsWhatIsSetAndReplacesWhatNoFileNameShouldHold) {
    const Info info(MRLTestInfo::create());
    info->setLocale(GetParam().locale);
    info->setMultiLocale(GetParam().multiLocale);
    std::string name = "before";
    info->generateOutputName(GetParam().report, GetParam().suffix, name);
    EXPECT_EQ(GetParam().expected, name);
    info->setMultiThreaded(1);
    info->generateOutputName(GetParam().report, GetParam().suffix, name);
    EXPECT_EQ(0U, name.find(GetParam().expected + std::string("_mt0x"))) << name;
}

INSTANTIATE_TEST_SUITE_P(TestInfo, OutputNames,
                         testing::Values(OutputName{"Sales: Q1/2", nullptr, nullptr, 0, "Sales__Q1_2"},
                                         OutputName{"r", "a b", "de-de", 1, "r_a_b_de-de"},
                                         OutputName{"r", "", "de-de", 0, "r"},
                                         OutputName{"a\\b", "", nullptr, 1, "a_b"}));

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
        const std::string text = ConfigurationFile::withParameters(parameters);
        HBLIDOM_Document document;
        ASSERT_EQ(1, HBLIDOM_Parser().parse(text.data(), text.size(), document));
        HBLConfigurationFactory::getInstance().configure(document.getDocumentElement());
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
