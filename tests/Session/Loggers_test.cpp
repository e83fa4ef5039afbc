#include "Session/MRLIPFLogger.h"
#include "Session/MRLPerfLogger.h"
#include "Session/MRLRTUsageLogger.h"
#include "support/Failure.h"
#include "support/LogHarness.h"
#include "support/Table.h"

#include "HBLCore/HBLSmartPointer.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using mrl::test::LogHarness;
using testing::ElementsAre;

namespace {

constexpr const char* EVERYTHING = R"({"sinks": {"all": {"type": "file", "path": "log"}},
                                       "loggers": {"*": {"level": 10000, "sinks": ["all"]}}})";

/// The values of some fields of each line, with "|" between them.
std::vector<std::string> fields(const LogHarness& log, std::initializer_list<const char*> names) {
    std::vector<std::string> found;
    for (const std::string& line : log.lines()) {
        const auto record = nlohmann::json::parse(line);
        std::string values;
        for (const char* name : names) {
            const auto& value = record[name];
            values += name == *names.begin() ? "" : "|";
            values += value.is_string() ? value.get<std::string>() : value.dump();
        }
        found.push_back(values);
    }
    return found;
}

struct LoggerTest : testing::Test {
    HBLSmartPointer<MRLIPFLogger> logger{MRLIPFLogger::create(nullptr)};
};

TEST_F(LoggerTest, MasksTheFirstPasswordOfARequest) {
    for (const auto& row : mrl::test::plainTable("masked.txt")) {
        const LogHarness log(EVERYTHING);
        for (const char* operation : {"Response", "Request"}) {
            I18NString data(row[0]);
            logger->audit(50000, operation, "Failure", &data, nullptr);
        }
        EXPECT_THAT(fields(log, {"logData"}), ElementsAre(row[0], row[1]));
    }
}

TEST_F(LoggerTest, DisabledLevelsAreItsOwn) {
    const LogHarness log(EVERYTHING);
    EXPECT_NE(0, logger->isAuditEnabled(10000));
    logger->disableLogging(20000, 1);
    EXPECT_EQ(0, logger->isAuditEnabled(20000));
    EXPECT_EQ(0, logger->isAuditEnabled(10000)) << "gone with any other";
    EXPECT_NE(0, logger->isAuditEnabled(30000));
    EXPECT_NE(0, logger->isTraceEnabled(20000));
    EXPECT_NE(0, logger->isPerfEnabled(20000));
    const HBLSmartPointer<MRLIPFLogger> copy(MRLIPFLogger::create(logger.get()));
    logger->disableLogging(20000, 0);
    EXPECT_NE(0, logger->isAuditEnabled(10000));
    EXPECT_EQ(0, copy->isAuditEnabled(20000));
    copy->disableLogging(10000, 1);
    EXPECT_EQ(0, copy->isAuditEnabled(50000));
    expectAssert([&] { copy->isAuditEnabled(15000); }, "HBL_ASSERT(levelFlag != eDisableNone);");
}

TEST_F(LoggerTest, NamesAndPathsAreCutToWhatMatters) {
    struct Row {
        const char* given;
        const char* kept;
    };
    for (const Row& row :
         {Row{"/a/package[@name='GO']/model[@name='m']", "GO"}, Row{"it's", "it's"}, Row{"m", "m"}}) {
        logger->setModelName(row.given);
        EXPECT_EQ(I18NString(row.kept), logger->getModelName());
    }
    for (const Row& row :
         {Row{"/a/package[1]/b[2]", "/a/package[1]/adHocReport"}, Row{"/a", "/a"}, Row{"", ""}}) {
        logger->setAdHocPath(row.given);
        EXPECT_EQ(I18NString(row.kept), logger->getAdHocPath());
    }
    logger->setObjectType("Query");
    logger->setAdHocPath("[1]");
    EXPECT_TRUE(logger->getAdHocPath().startsWith("[1]/adHocReport[")) << logger->getAdHocPath();
    logger->setServiceType("batch");
    std::string type;
    logger->getObjectType(type);
    EXPECT_EQ("Query batch", type);
    logger->setObjectType("");
    logger->getObjectType(type);
    EXPECT_EQ("batch", type);
    expectAssert([&] { logger->setObjectType(nullptr); }, "HBL_ASSERT(type);");
    EXPECT_STREQ("Analysis", MRLIPFLogger::getObjectTypeForLogging(MRLSchemaTypeI::eMRLAnalysis));
    EXPECT_THROW(MRLIPFLogger::getObjectTypeForLogging(MRLSchemaTypeI::eString), HBLAssertError);
}

TEST_F(LoggerTest, WritesTheObjectAndItsParameters) {
    const LogHarness log(EVERYTHING);
    logger->setObjectType("Report");
    logger->setAdHocPath("/adhoc");
    logger->setModelName("m");
    I18NString data("d");
    I18NString error("e");
    logger->audit(30000, "Run", "Success", &data, &error);
    logger->setStoreID("i1");
    logger->setObjectPath("/path");
    logger->setErrorMessage("the reason");
    logger->audit(30000, "Run", "Failure", nullptr, &error);
    logger->audit(40000, nullptr, "Success", &data, &error);
    logger->audit(50000, "Failure", nullptr, &error); // no operation type, so nothing
    logger->setOperationType("Kept");
    logger->audit(50000, "Failure", nullptr, nullptr);
    logger->audit(15000, "Run", "Failure", &data, &error); // no such level
    EXPECT_THAT(
        fields(log, {"operation", "objectType", "objectPath", "status", "logData", "errorMessage"}),
        ElementsAre(
            R"(Run|Report|/adhoc|Success|<parameters><item name="model"><![CDATA[m]]></item></parameters>|e)",
            R"(Run|Report|/path|Failure|<parameters><item name="model"><![CDATA[m]]></item></parameters>)"
            R"(<parameters><item name="storeID"><![CDATA[i1]]></item></parameters>|the reason)",
            "|Report|/path|Success|<trace>d</trace>|e", "Kept|Report|/path|Failure||"));
    EXPECT_EQ(I18NString("e"), error);
    logger->audit(10000, "Run", "Success", &data, &error);
    EXPECT_EQ(I18NString("e d"), error) << "grows in the caller's hands";
}

TEST_F(LoggerTest, AMeasurementHasABeginAndAnEndEachTimeItGoesOn) {
    LogHarness log(EVERYTHING);
    logger->setRequestId("r1");
    const I18NString data("<d/>");
    const I18NString sequence("2");
    {
        MRLPerfLogger perf("C", "m", 20000, nullptr, MRLPerfLogger::ePerfCM, MRLPerfLogger::ePerfCallReturn,
                           "io");
        perf.restartAndLog("no", MRLPerfLogger::ePerfStartFinish); // goes on already
        perf.setPerfIds(logger.get(), &data, nullptr);
        perf.stopAndLog();
        perf.stopAndLog();
        perf.restartAndLog(sequence, MRLPerfLogger::ePerfStartFinish);
        EXPECT_EQ(20000, perf.getLevel());
    }
    { const MRLPerfLogger perf("C", "m", 10000, nullptr); }
    EXPECT_THAT(fields(log, {"logger", "status", "requestID", "sequenceId", "logData"}),
                ElementsAre("Perf.RENQ.CM|CALL|||",
                            "Perf.RENQ.CM|RETURN|r1||<LogDataItems><d/></LogDataItems>",
                            "Perf.RENQ.CM|START|r1|2|<LogDataItems><d/></LogDataItems>",
                            "Perf.RENQ.CM|FINISH|r1|2|<LogDataItems><d/></LogDataItems>", "Perf.MRL|ENTER|||",
                            "Perf.MRL|EXIT|||"));
    const auto ids = fields(log, {"executionId"});
    EXPECT_EQ(ids[0], ids[1]);
    EXPECT_EQ(ids[2], ids[3]);
    EXPECT_NE(ids[0], ids[2]);
    expectAssert([] { MRLPerfLogger("C", "m", 10000, nullptr, static_cast<MRLPerfLogger::eSubComp>(6)); },
                 R"(HBL_ASSERT_NAMED(FALSE, "[MRLPerfLogger::MRLPerfLogger] unknown eSubComp specified.");)");
}

TEST_F(LoggerTest, AMeasurementOfADisabledLevelDoesNothing) {
    const LogHarness log("{}");
    MRLPerfLogger perf("C", "m", 50000, nullptr);
    perf.stopAndLog();
    perf.restartAndLog("1", MRLPerfLogger::ePerfEnterExit);
    perf.setPerfIds(logger.get(), nullptr, nullptr);
    EXPECT_EQ(0, perf.isEnabled());
    EXPECT_EQ(50000, perf.getLevel());
    expectAssert([&] { perf.setLogData("d"); }, "HBL_ASSERT(m_logPerfIndication != NULL);");
}

TEST_F(LoggerTest, UsageEndsWithItsObjectAndOnlyWhileItIsRecorded) {
    LogHarness log(EVERYTHING);
    {
        MRLRTUsageLogger usage("A", "b");
        usage.setLoggerName("Audit.RTUsage.MRL");
        usage.logEnd(); // not started
        usage.addParameter("p", "v");
        usage.logStart();
        usage.logStart();
    }
    MRLRTUsageLogger usage("A", "c");
    usage.logStart();
    log.replace("{}");
    LogHarness::pass(1000);
    usage.logEnd();
    EXPECT_EQ(0, usage.isEnabled());
    const std::string data = R"(|<function name="A::b"></function>)";
    EXPECT_THAT(fields(log, {"operation", "logData"}),
                ElementsAre("CallStart" + data, "CallStart" + data, "CallEnd" + data,
                            R"(CallStart|<function name="A::c"></function>)"));
}

} // namespace
