// What a session writes into the log, for each way that a call can end and each level.
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLTavelHeader.h"
#include "serialization/MRLSOAPFaultException.h"
#include "support/FakeBus.h"
#include "support/LogHarness.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "TavelTK/TavelTKException.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <thread>

using mrl::test::FakeBus;
using mrl::test::LogHarness;
using testing::ElementsAre;

namespace {

constexpr const char* URL = "http://bus.example/service";
constexpr const char* CONTEXT =
    "test URI=http://bus.example/service "
    "SOAPACTION=http://www.vantor.example/xmlns/prod/vantor/contentManagerService/202004/";

std::string envelope(const std::string& body) {
    return R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" )"
           R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xs="http://www.w3.org/2001/XMLSchema">)"
           "<e:Body>" +
           body + "</e:Body></e:Envelope>";
}
const std::string ANSWER = envelope("<r><result xsi:type='xs:string'>cm1</result></r>");
const std::string FAULT =
    envelope("<e:Fault><faultcode>Client</faultcode><faultstring>no</faultstring><detail><exception>"
             "<errorCode>cmNoRead</errorCode><message><messageString>not for you</messageString></message>"
             "</exception></detail></e:Fault>");

std::string configuration(int level, const char* perfLevel) {
    return R"({"sinks": {"audit": {"type": "file", "path": "log"}, "perf": {"type": "file", "path": "perf"}},
               "loggers": {"Audit": {"level": )" +
           std::to_string(level) + R"(, "sinks": ["audit"]}, "Perf": {"level": )" + perfLevel +
           R"(, "sinks": ["perf"]}}})";
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = 0; !what.empty() && (at = text.find(what, at)) != std::string::npos;) {
        text.replace(at, what.size(), with);
        at += with.size();
    }
    return text;
}

/// One call over a scripted bus, and what became of it.
struct Call {
    explicit Call(std::vector<FakeBus::Step> script) {
        for (FakeBus::Step& step : script) {
            bus.script(std::move(step));
        }
        MRLSOAPSession session(nullptr, nullptr, nullptr, nullptr, nullptr, "test");
        session.setURI(URL);
        const HBLSmartPointer<MRLPortTypeBinding> binding(
            MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
                MRLMessageI::eMRLContentGetActiveContentManager_Request));
        binding->getInputMessage().setTavelHeader(&header);
        try {
            session.submit(*binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
        } catch (MRLSOAPFaultException& e) {
            failure = e.getSOAPFault().toString(e.getTavelHeader());
            e.getSOAPFault().getMessages(shortFailure);
        } catch (HBLThrowable& e) {
            shortFailure = e.getMessage();
        }
        request = bus.requests.empty() ? "" : bus.requests.front();
    }
    std::string escaped(const std::string& text) const {
        return replaced(replaced(replaced(text, "\"", "\\\""), "\n", "\\n"), "\t", "\\t");
    }

    FakeBus bus;
    MRLTavelHeader header;
    std::string request;
    std::string failure;
    std::string shortFailure;
};

TEST(Audit, OfAPlainCallIsItsWholeTrafficBetweenTheRecordsOfItsUse) {
    const LogHarness log(configuration(10000, "10000"));
    const Call call({{ANSWER, {}}});
    const std::string head = LogHarness::head("Audit.RTUsage.MRL", "LogAuditIndication", 10000) +
                             R"("component":"MRL","version":7,"sessionID":"","requestID":"",)"
                             R"("subRequestID":"","stepID":"","operation":)";
    const std::string function =
        R"(,"logData":"<function name=\"MRLSOAPSession::submit:getActiveContentManager\"></function>"})";
    EXPECT_THAT(
        log.lines(),
        ElementsAre(head + "\"CallStart\"" + function,
                    head + "\"Request\",\"logData\":\"" + CONTEXT + " " + call.escaped(call.request) + "\"}",
                    head + "\"Response\",\"logData\":\"test " + call.escaped(ANSWER) + "\"}",
                    head + "\"CallEnd\"" + function));

    std::vector<std::string> perf = log.lines("perf");
    ASSERT_EQ(2u, perf.size());
    const auto execution = nlohmann::json::parse(perf[0])["executionId"].dump();
    const nlohmann::json counters = nlohmann::json::parse(perf[1])["counters"];
    const auto expected = [&](const char* status, const std::string& readings) {
        return LogHarness::head("Perf.MRL", "LogPerfIndication", 10000) +
               R"("component":"MRL","version":7,"sessionID":"","requestID":"","subRequestID":"",)"
               R"("stepID":"","classId":"MRLSOAPSession","methodId":"submit:getActiveContentManager",)"
               R"("status":")" +
               status + R"(","executionId":)" + execution + R"(,"sequenceId":"","logData":"",)" +
               R"("counters":{"name":"",)" + readings + "}}";
    };
    EXPECT_EQ(expected("ENTER", R"("elapsedMicroseconds":0,"processorMicroseconds":0,"stretches":0)"),
              perf[0]);
    EXPECT_EQ(expected("EXIT", R"("elapsedMicroseconds":)" + counters["elapsedMicroseconds"].dump() +
                                   R"(,"processorMicroseconds":)" + counters["processorMicroseconds"].dump() +
                                   R"(,"stretches":1)"),
              perf[1]);
}

/// "LEVEL OPERATION STATUS DATA / ERROR", long texts by name.
std::string brief(const std::string& line, const Call& call, const std::string& reply) {
    const auto record = nlohmann::json::parse(line);
    const std::string operation = record["operation"];
    if (operation.starts_with("Call")) {
        return operation;
    }
    std::string text = std::to_string(record["level"].get<int>()) + " " + operation;
    if (record.contains("status")) {
        text += " " + record["status"].get<std::string>();
    }
    text += " " + record["logData"].get<std::string>();
    if (record.contains("errorMessage")) {
        text += " / " + record["errorMessage"].get<std::string>();
    }
    if (const std::size_t trace = text.find("TavelTKException"); trace != std::string::npos) {
        const std::size_t end = text.rfind(" / ");
        EXPECT_NE(std::string::npos, text.find(call.shortFailure)) << text;
        text.replace(trace, end - trace, "{throwable}");
    }
    text = replaced(text, call.request, "{request}");
    text = replaced(text, CONTEXT, "{context}");
    text = replaced(text, call.failure, "{fault}");
    text = replaced(text, call.shortFailure, "{message}");
    return replaced(text, reply, "{reply}");
}

FakeBus::Step failing(const std::string& reply, int code, const std::string& where) {
    return {reply, [code, where](const std::string& operation) {
                if (operation == where) {
                    HBL_THROW(TavelTKException(code), "test");
                }
            }};
}

struct Ending {
    const char* name;
    int level;
    FakeBus::Step step;
    std::vector<std::string> records;
};

class AuditOf : public testing::TestWithParam<Ending> {};

TEST_P(AuditOf, ACallTellsWhatItsLevelLetsThrough) {
    const LogHarness log(configuration(GetParam().level, "\"off\""));
    const Call call({GetParam().step});
    std::vector<std::string> records;
    for (const std::string& line : log.lines()) {
        records.push_back(brief(line, call, GetParam().step.reply));
    }
    EXPECT_EQ(GetParam().records, records);
    EXPECT_TRUE(log.lines("perf").empty());
}

INSTANTIATE_TEST_SUITE_P(
    Session, AuditOf,
    testing::Values(
        Ending{"plain_20000", 20000, {ANSWER, {}}, {}},
        Ending{"fault_10000",
               10000,
               {FAULT, {}},
               {"CallStart", "10000 Request {context} {request}", "20000 Response Failure {fault} / test",
                "50000 Response Failure {message} / test", "CallEnd"}},
        Ending{"fault_20000",
               20000,
               {FAULT, {}},
               {"40000 Request Info {request} / {context}", "20000 Response Failure {fault} / test",
                "50000 Response Failure {message} / test"}},
        Ending{"fault_30000",
               30000,
               {FAULT, {}},
               {"40000 Request Info {request} / {context}", "50000 Response Failure {message} / test"}},
        Ending{"fault_50000", 50000, {FAULT, {}}, {"50000 Response Failure {message} / test"}},
        Ending{"no_connection_10000",
               10000,
               failing(ANSWER, 7, "openResponse"),
               {"CallStart", "10000 Request {context} {request}", "40000 Response Failure {throwable} / test",
                "CallEnd"}},
        Ending{"no_connection_40000",
               40000,
               failing(ANSWER, 7, "openResponse"),
               {"40000 Response Failure {throwable} / test"}},
        Ending{"no_connection_50000",
               50000,
               failing(ANSWER, 7, "openResponse"),
               {"50000 Response Failure {message} / test"}},
        Ending{"not_sent_20000",
               20000,
               failing(ANSWER, 7, "closeEnvelope"),
               {"40000 Request Failure {request} / {context}", "40000 Response Failure {throwable} / test"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Audit, OfABadReplyHasAllThatCame) {
    const LogHarness log(configuration(20000, "\"off\""));
    const std::string reply = envelope("<r><result>") + std::string(5000, '.');
    const Call call({{reply, {}}});
    ASSERT_EQ(3u, log.lines().size());
    EXPECT_EQ("40000 Request Info {request} / {context}", brief(log.lines()[0], call, reply));
    EXPECT_EQ("20000 Response Failure {reply} / test", brief(log.lines()[1], call, reply));
    EXPECT_THAT(log.lines()[2], testing::HasSubstr("\"level\":40000,"));
}

TEST(Audit, OfRetriesHasANoteBeforeTheFirstAndOneWhenTheyAreUsedUp) {
    const LogHarness log(configuration(10000, "\"off\""));
    const Call call(std::vector<FakeBus::Step>(11, failing(ANSWER, 6, "openEnvelope(reply)")));
    std::vector<std::string> records;
    for (const std::string& line : log.lines()) {
        records.push_back(brief(line, call, ANSWER));
    }
    std::vector<std::string> expected(15, "10000 Request {context} {request}");
    expected[0] = "CallStart";
    expected[2] = "10000 Request test ---- RETRY submit() - Total retries = 10 "
                  "test ---- RETRY submit() - Total retries = 10";
    expected[12] = "10000 Request {context} {request}";
    expected[13] = "10000 Request test ---- RETRY submit() - failed after reach retry limit. "
                   "test ---- RETRY submit() - failed after reach retry limit.";
    expected[14] = "40000 Response Failure {throwable} / test";
    expected.emplace_back("CallEnd");
    EXPECT_EQ(expected, records);
    EXPECT_THAT(call.bus.calls, testing::Contains("echo taveltk_client_echo_retry.txt wb 1").Times(10));
}

TEST(Audit, MayBeAskedForByManyThreadsOfOneSession) {
    const LogHarness log(configuration(50000, "\"off\""));
    const MRLTavelHeader header;
    MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "test");
    session.setURI("http://127.0.0.1:1/"); // where nobody listens
    std::vector<std::thread> threads;
    for (int number = 0; number < 16; ++number) {
        threads.emplace_back([&] {
            const HBLSmartPointer<MRLPortTypeBinding> binding(
                MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
                    MRLMessageI::eMRLContentGetActiveContentManager_Request));
            EXPECT_THROW(session.submit(*binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr),
                         TavelTKException);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(log.lines(), testing::SizeIs(16));
}

} // namespace
