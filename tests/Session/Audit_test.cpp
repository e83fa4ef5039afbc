// What a session writes into the log, for each way that a call can end and each level.
#include "Session/MRLSOAPSession.h"
#include "Session/Replies.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLTavelHeader.h"
#include "serialization/MRLSOAPFaultException.h"
#include "support/FakeBus.h"
#include "support/LogHarness.h"
#include "support/Table.h"
#include "support/Threads.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "TavelTK/TavelTKException.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <map>

using mrl::test::FakeBus;
using mrl::test::LogHarness;

namespace {

constexpr const char* CONTEXT =
    "test URI=http://bus.example/service "
    "SOAPACTION=http://www.vantor.example/xmlns/prod/vantor/contentManagerService/202004/";

const std::string ANSWER = mrl::test::answer("cm1");
const std::string BROKEN = mrl::test::envelope("<r><result>") + std::string(5000, '.');
const std::string FAULT =
    mrl::test::fault("cmNoRead", "<message><messageString>not for you</messageString></message>");

std::string configuration(int level, const char* perfLevel) {
    return R"({"sinks": {"audit": {"type": "file", "path": "log"}, "perf": {"type": "file", "path": "perf"}},
               "loggers": {"Audit": {"level": )" +
           std::to_string(level) + R"(, "sinks": ["audit"]}, "Perf": {"level": )" + perfLevel +
           R"(, "sinks": ["perf"]}}})";
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = 0; !what.empty() && (at = text.find(what, at)) != std::string::npos;
         at += with.size()) {
        text.replace(at, what.size(), with);
    }
    return text;
}
std::string escaped(const std::string& text) {
    return replaced(replaced(replaced(text, "\"", "\\\""), "\n", "\\n"), "\t", "\\t");
}

constexpr int UNKNOWN = -1;

/// One call over a scripted bus, and what became of it.
struct Call {
    Call(std::string answer, int code = 0, const std::string& failingOperation = "", int times = 1)
        : reply(std::move(answer)) {
        for (int exchange = 0; exchange < times; ++exchange) {
            bus.script({reply, [=](const std::string& operation) {
                            if (operation == failingOperation && code == UNKNOWN) {
                                throw code; // what nobody knows
                            }
                            if (operation == failingOperation) {
                                HBL_THROW(TavelTKException(code), "test");
                            }
                        }});
        }
        MRLSOAPSession session(nullptr, nullptr, nullptr, nullptr, nullptr, "test");
        session.setURI("http://bus.example/service");
        const auto binding = mrl::test::TextCall().binding;
        binding->getInputMessage().setTavelHeader(&header);
        try {
            session.submit(*binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
        } catch (MRLSOAPFaultException& e) {
            fault = e.getSOAPFault().toString(e.getTavelHeader());
        } catch (HBLThrowable& e) {
            message = e.getMessage();
        } catch (int) {
            message = "The request failed for a reason that is not known."; // 0xa64eb6c6
        }
        request = bus.requests.empty() ? "" : bus.requests.front();
    }

    /// "LEVEL OPERATION STATUS DATA / ERROR" of each record, long texts by name.
    std::string records(const LogHarness& log) const {
        std::string all;
        for (const std::string& line : log.lines()) {
            const auto record = nlohmann::json::parse(line);
            std::string data = record["logData"];
            if (!message.empty() && data != message && data.find(message) != std::string::npos) {
                data = "{throwable}"; // its back trace has lines of ours
            }
            for (const auto& [text, name] : {std::pair(request, "{request}"),
                                             {std::string(CONTEXT), "{context}"},
                                             {fault, "{fault}"},
                                             {message, "{message}"},
                                             {reply, "{reply}"}}) {
                data = replaced(data, text, name);
            }
            all += std::to_string(record["level"].get<int>()) + " " + record["operation"].get<std::string>();
            all += record.contains("status") ? " " + record["status"].get<std::string>() : "";
            all += data.starts_with("<function") ? "" : " " + data;
            all += record.contains("errorMessage")
                       ? " / " + replaced(record["errorMessage"], CONTEXT, "{context}")
                       : "";
            all += "\n";
        }
        return all;
    }

    FakeBus bus;
    MRLTavelHeader header;
    std::string reply, request, fault, message;
};

TEST(Audit, OfAPlainCallIsItsWholeTrafficBetweenTheRecordsOfItsUse) {
    const LogHarness log(configuration(10000, "10000"));
    const Call call(ANSWER);
    const std::string ids =
        R"("component":"MRL","version":7,"sessionID":"","requestID":"","subRequestID":"",)"
        R"("stepID":"",)";
    const std::string head =
        LogHarness::head("Audit.RTUsage.MRL", "LogAuditIndication", 10000) + ids + R"("operation":)";
    const std::string function =
        R"(,"logData":"<function name=\"MRLSOAPSession::submit:getActiveContentManager\"></function>"})";
    EXPECT_THAT(log.lines(),
                testing::ElementsAre(head + "\"CallStart\"" + function,
                                     head + "\"Request\",\"logData\":\"" + CONTEXT + " " +
                                         escaped(call.request) + "\"}",
                                     head + "\"Response\",\"logData\":\"test " + escaped(ANSWER) + "\"}",
                                     head + "\"CallEnd\"" + function));

    const std::vector<std::string> perf = log.lines("perf");
    ASSERT_EQ(2u, perf.size());
    for (const int end : {0, 1}) {
        const nlohmann::json record = nlohmann::json::parse(perf[end]);
        const auto& counters = record["counters"];
        EXPECT_EQ(LogHarness::head("Perf.MRL", "LogPerfIndication", 10000) + ids +
                      R"("classId":"MRLSOAPSession","methodId":"submit:getActiveContentManager","status":")" +
                      (end == 0 ? "ENTER" : "EXIT") + R"(","executionId":)" + record["executionId"].dump() +
                      R"(,"sequenceId":"","logData":"","counters":{"name":"","elapsedMicroseconds":)" +
                      (end == 0 ? "0" : counters["elapsedMicroseconds"].dump()) +
                      R"(,"processorMicroseconds":)" +
                      (end == 0 ? "0" : counters["processorMicroseconds"].dump()) + R"(,"stretches":)" +
                      std::to_string(end) + "}}",
                  perf[end]);
    }
}

TEST(Audit, TellsOfAFailureWhatTheLevelLetsThrough) {
    const std::map<std::string, std::string> replies = {
        {"answer", ANSWER}, {"fault", FAULT}, {"broken", BROKEN}};
    for (const auto& row : mrl::test::plainTable("audit.txt")) {
        const LogHarness log(configuration(std::stoi(row[0]), "\"off\""));
        const Call call(replies.at(row[1]), row[3] == "unknown" ? UNKNOWN : 7, row[2]);
        EXPECT_EQ(mrl::test::withBytes(row[4]), call.records(log))
            << row[0] << " " << row[1] << " " << row[2];
        EXPECT_TRUE(log.lines("perf").empty());
    }
}

TEST(Audit, OfRetriesHasANoteBeforeTheFirstAndOneWhenTheyAreUsedUp) {
    const LogHarness log(configuration(10000, "\"off\""));
    const Call call(ANSWER, 6, "openEnvelope(reply)", 11);
    const std::string request = "10000 Request {context} {request}\n";
    std::string expected = "10000 CallStart\n" + request +
                           "10000 Request test ---- RETRY submit() - Total retries = 10 "
                           "test ---- RETRY submit() - Total retries = 10\n";
    for (int retry = 0; retry < 10; ++retry) {
        expected += request;
    }
    EXPECT_EQ(expected + "10000 Request test ---- RETRY submit() - failed after reach retry limit. "
                         "test ---- RETRY submit() - failed after reach retry limit.\n"
                         "40000 Response Failure {throwable} / test\n10000 CallEnd\n",
              call.records(log));
    EXPECT_THAT(call.bus.calls, testing::Contains("echo taveltk_client_echo_retry.txt wb 1").Times(10));
}

TEST(Audit, ServesManyThreadsOfOneSession) {
    const LogHarness log(configuration(50000, "10000"));
    const MRLTavelHeader header;
    MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "test");
    session.setURI("http://127.0.0.1:1/"); // where nobody listens
    mrl::test::inThreads(16, [&](int) {
        EXPECT_THROW(
            session.submit(*mrl::test::TextCall().binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr),
            TavelTKException);
    });
    EXPECT_EQ(16u, log.lines().size());
    EXPECT_EQ(32u, log.lines("perf").size());
}

} // namespace
