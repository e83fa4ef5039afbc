#include "support/LogHarness.h"
#include "support/Table.h"

#include "logipf2/LogAuditIndication.h"
#include "logipf2/LogConfigurationError.h"
#include "logipf2/LogTypedLogger.h"

#include <gmock/gmock.h>

using mrl::test::LogHarness;
using testing::HasSubstr;

namespace {

std::string loggers(const std::string& rows) {
    return R"({"sinks": {"all": {"type": "file", "path": "log"}}, "loggers": {)" + rows + "}}";
}

/// The least level that a logger writes; 0 for none.
int leastLevel(const char* name) {
    for (const int level : {10000, 20000, 30000, 40000, 50000}) {
        if (LogTypedLogger::getInstance(name, "LogAuditIndication")->isEnabled(level) != 0) {
            return level;
        }
    }
    return 0;
}

TEST(LogConfiguration, ALoggerTakesWhatTheNearestNameAboveItSays) {
    const LogHarness log(loggers(R"(
        "*": {"level": 50000, "sinks": ["all"]}, // the rest
        "Audit.RTUsage.MRL": {"level": 20000},
        "Audit.RTUsage.MRL.Request": {"level": "off"})"));
    EXPECT_EQ(20000, leastLevel("Audit.RTUsage.MRL"));
    EXPECT_EQ(0, leastLevel("Audit.RTUsage.MRL.Request"));
    EXPECT_EQ(0, leastLevel("Audit.RTUsage.MRL.Request.deeper"));
    EXPECT_EQ(20000, leastLevel("Audit.RTUsage.MRL.Reply"));
    EXPECT_EQ(50000, leastLevel("Audit.RTUsage.MRLx")) << "a longer name is not a name below";
    EXPECT_EQ(50000, leastLevel("Trace.MRL"));
}

TEST(LogConfiguration, WithoutOneNothingIsLoggedUntilThereIsOne) {
    testing::internal::CaptureStderr();
    LogHarness log("");
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("mrllogging.json: there is no such file"));
    EXPECT_EQ(0, leastLevel("Perf.MRL"));
    log.replace(loggers(R"("Perf": {"level": 10000, "sinks": ["all"]})"));
    EXPECT_EQ(0, leastLevel("Perf.MRL")) << "noticed within the second";
    LogHarness::pass(1000);
    EXPECT_EQ(10000, leastLevel("Perf.MRL"));
    LogIPFControl::stop();
    EXPECT_EQ(0, leastLevel("Perf.MRL"));
    LogIPFControl::start(0);
    EXPECT_EQ(10000, leastLevel("Perf.MRL"));
}

TEST(LogConfiguration, ABadChangeIsSaidOnceAndTheFormerOneStays) {
    LogHarness log(loggers(R"("*": {"level": 30000, "sinks": ["all"]})"));
    log.replace("{\n  \"loggers\": {\n    \"*\": {\"level\": 12}}}");
    testing::internal::CaptureStderr();
    for (int second = 0; second < 3; ++second) {
        LogHarness::pass(1000);
        EXPECT_EQ(30000, leastLevel("Perf.MRL"));
    }
    EXPECT_EQ("mrl logging: " + log.path("mrllogging.json") +
                  R"(, line 3: not a level; write 10000, 20000, 30000, 40000, 50000 or "off")"
                  " (logging goes on as before)\n",
              testing::internal::GetCapturedStderr());

    testing::internal::CaptureStderr();
    std::filesystem::remove(log.path("mrllogging.json"));
    LogHarness::pass(1000);
    EXPECT_EQ(30000, leastLevel("Perf.MRL"));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("no such file"));
    log.replace(loggers(R"("*": {"level": 40000, "sinks": ["all"]})"));
    LogHarness::pass(1000);
    EXPECT_EQ(40000, leastLevel("Perf.MRL"));
}

TEST(LogConfiguration, IsRefusedWithLineAndRemedy) {
    LogHarness log("{}");
    for (const auto& row : mrl::test::plainTable("refused.txt")) {
        log.replace(mrl::test::withBytes(row[0]));
        try {
            LogIPFControl::checkConfiguration(log.path("mrllogging.json"));
            ADD_FAILURE() << "taken: " << row[0];
        } catch (const LogConfigurationError& e) {
            EXPECT_THAT(e.getText(), testing::StartsWith(log.path("mrllogging.json") + ", line " + row[1]));
        }
    }
    EXPECT_NO_THROW(LogIPFControl::checkConfiguration(MRL_RESOURCES "/mrllogging.json"));
}

} // namespace
