#include "Session/MRLTestInfo.h"
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
    EXPECT_EQ(nullptr, info->getLocale());
    info->setLocale("fr");
    EXPECT_STREQ("fr", info->getLocale());
    info->setLocale(nullptr);
    EXPECT_EQ(nullptr, info->getLocale());
    EXPECT_EQ(nullptr, info->getConcurrentQueryJobStateDump());
    expectAssert([&] { info->setConcurrentQueryJobStateDump(nullptr); }, "HBL_ASSERT(pDump);");
    info->setConcurrentQueryJobStateDump("");
    EXPECT_STREQ("", info->getConcurrentQueryJobStateDump());
    EXPECT_EQ(0, info->getMultiThreaded());
}

struct ContentManagers : testing::Test {
    ~ContentManagers() override { HBLConfigurationFactory::deleteInstance(); }
    /// @param items the tree of "contentManagers".
    static void configure(const std::string& items) {
        HBLConfigurationFactory::deleteInstance();
        const std::string text = "<qzn:parameters xmlns:qzn='http://developer.vantor.example/schemas/"
                                 "qzconfig/1/'><qzn:parameter name='contentManagers'><qzn:value>" +
                                 items + "</qzn:value></qzn:parameter></qzn:parameters>";
        HBLIDOM_Document document;
        ASSERT_EQ(1, HBLIDOM_Parser().parse(text.data(), text.size(), document));
        HBLConfigurationFactory::getInstance().configure(document.getDocumentElement());
    }
    static std::string configured() {
        return HBLConfigurationFactory::getInstance().getProperty("contentManager").toUtf8();
    }
};

TEST_F(ContentManagers, AreReducedToTheFirstWithAWarning) {
    configure("<qzn:item>http://a.example/</qzn:item><qzn:item>http://b.example/</qzn:item>");
    testing::internal::CaptureStderr();
    MRLTestInfo::setContentManager();
    EXPECT_EQ("WARNING: Multiple content manager entries detected, defaulting to \"http://a.example/\"\n",
              testing::internal::GetCapturedStderr());
    EXPECT_EQ("http://a.example/", configured());

    configure("<qzn:item>http://c.example/</qzn:item>");
    testing::internal::CaptureStderr();
    MRLTestInfo::setContentManager();
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    EXPECT_EQ("http://c.example/", configured());
}

TEST_F(ContentManagers, MustBeThere) {
    HBLIDOM_Document document;
    const std::string none =
        "<qzn:parameters xmlns:qzn='http://developer.vantor.example/schemas/qzconfig/1/'/>";
    HBLConfigurationFactory::deleteInstance();
    ASSERT_EQ(1, HBLIDOM_Parser().parse(none.data(), none.size(), document));
    HBLConfigurationFactory::getInstance().configure(document.getDocumentElement());
    expectAssert([] { MRLTestInfo::setContentManager(); }, "HBL_ASSERT(contentManagers.isNull() == FALSE);");
}

} // namespace
