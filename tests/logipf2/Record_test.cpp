#include "support/LogHarness.h"

#include "HBLCore/HBLResourceCounterSet.h"
#include "logipf2/LogAuditAccessIndication.h"
#include "logipf2/LogPerfIndication.h"
#include "logipf2/LogTraceIndication.h"
#include "logipf2/LogTypedLogger.h"

#include <gmock/gmock.h>

using mrl::test::LogHarness;
using testing::ElementsAre;

namespace {

constexpr const char* TO_FILE = R"({"sinks": {"all": {"type": "file", "path": "log"}},
                                    "loggers": {"*": {"level": 10000, "sinks": ["all"]}}})";

template <class Record>
Record filled() {
    Record record("MRL", 7);
    record.setLevel(20000);
    record.setSessionID("s");
    record.setRequestID("r");
    record.setSubRequestID("u");
    record.setStepID("t");
    return record;
}

constexpr const char* IDS =
    R"("component":"MRL","version":7,"sessionID":"s","requestID":"r","subRequestID":"u","stepID":"t",)";

TEST(Record, HasEveryFieldOfItsKind) {
    const LogHarness log(TO_FILE);
    const LogTypedLogger& logger = *LogTypedLogger::getInstance("A.b", "LogAuditIndication");

    auto audit = filled<LogAuditIndication>();
    audit.setOperation("Request");
    audit.setLogData("<a/>");
    logger.log(&audit);

    auto access = filled<LogAuditAccessIndication>();
    access.setObjectType("Report");
    access.setObjectPath("/content");
    access.setStatus("Failure");
    access.setErrorMessage("no");
    logger.log(&access);

    auto trace = filled<LogTraceIndication>();
    trace.setClassId("C");
    trace.setMethodId("m");
    trace.setLogData("d");
    logger.log(&trace);

    const HBLResourceCounterSet counters("calls", nullptr);
    LogPerfIndication perf("MRL", 7, &counters);
    perf.setStatus("CALL");
    logger.log(&perf);
    const std::string first = std::to_string(perf.getExecutionId());
    perf.setExecutionId();
    EXPECT_NE(first, std::to_string(perf.getExecutionId()));

    EXPECT_THAT(
        log.lines(),
        ElementsAre(LogHarness::head("A.b", "LogAuditIndication", 20000) + IDS +
                        R"("operation":"Request","logData":"<a/>"})",
                    LogHarness::head("A.b", "LogAuditAccessIndication", 20000) + IDS +
                        R"("operation":"","logData":"","objectType":"Report","objectPath":"/content",)"
                        R"("status":"Failure","errorMessage":"no"})",
                    LogHarness::head("A.b", "LogTraceIndication", 20000) + IDS +
                        R"("classId":"C","methodId":"m","logData":"d"})",
                    LogHarness::head("A.b", "LogPerfIndication", 50000) +
                        R"("component":"MRL","version":7,"sessionID":"","requestID":"","subRequestID":"",)"
                        R"("stepID":"","classId":"","methodId":"","status":"CALL","executionId":)" +
                        first +
                        R"(,"sequenceId":"","logData":"","counters":{"name":"calls",)"
                        R"("elapsedMicroseconds":0,"processorMicroseconds":0,"stretches":0}})"));
}

TEST(Record, KeepsEveryTextInItsQuotesAndOnItsLine) {
    const std::pair<std::u16string, std::string> rows[] = {
        {u"x\"}\n{\"time\":\"", R"(x\"}\n{\"time\":\")"}, // a forged record
        {std::u16string(u"\0\x01\b\t\f\r\x1b\x7f\\", 9), R"(\u0000\u0001\b\t\f\r\u001b\u007f\\)"},
        {u"\x85\x2028\x2029\x202e\x2066\xfeff", R"(\u0085\u2028\u2029\u202e\u2066\ufeff)"},
        {u"a\xe9\x20ac\xd83d\xde00", "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80"},
        {u"\xd83d.\xde00\xd83d", "\xef\xbf\xbd.\xef\xbf\xbd\xef\xbf\xbd"}}; // lone surrogates
    for (const auto& [text, json] : rows) {
        const LogHarness log(TO_FILE);
        LogAuditIndication record("MRL", 7);
        record.setOperation("a\xff\n"); // not UTF-8
        record.setLogData(I18NString(text));
        LogTypedLogger::getInstance("A.b", "LogAuditIndication")->log(&record);
        EXPECT_THAT(log.lines(), ElementsAre(testing::EndsWith(
                                     "\"operation\":\"a\xef\xbf\xbd\\n\",\"logData\":\"" + json + "\"}")));
    }
}

} // namespace
