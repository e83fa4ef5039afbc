#include "Session/MRLSOAPSession.h"
#include "Session/Replies.h"
#include "Toolkit/MRLBatchReportServicePortType.h"
#include "Toolkit/MRLJobServicePortType.h"
#include "Toolkit/MRLReportServicePortType.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/Failure.h"
#include "support/FakeBus.h"
#include "support/Table.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "TavelTK/TavelTKException.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <sstream>

using mrl::test::answer;
using mrl::test::FakeBus;
using mrl::test::fault;
using Call = mrl::test::TextCall;
using testing::Contains;
using testing::HasSubstr;

namespace {

/// A session over a bus that answers from a script.
struct Scripted {
    Scripted() { session.setURI("http://bus.example/service"); }
    void submit(Call& call, MRLSOAPSession::MRLSOAPTrusted trusted = MRLSOAPSession::eMRLSOAPUntrusted) {
        session.submit(*call.binding, trusted, nullptr);
    }
    MRLTavelHeader header;
    FakeBus bus;
    MRLSOAPSession session{&header, nullptr, nullptr, nullptr, nullptr, "test"};
};

struct SessionTest : testing::Test, Scripted {};

TEST_F(SessionTest, ARequestWithoutAnyHeaderIsRefusedAndGivenBack) {
    bus.answer(answer("cm1"));
    session.setTavelHeader(nullptr);
    Call call;
    expectAssert([&] { submit(call); }, R"(HBL_ASSERT_NAMED(m_tavelHeader, "A Tavel header is required.");)");
    EXPECT_THAT(bus.calls, Contains("closeEnvelope"));
    EXPECT_EQ("delete factory", bus.calls.back());
    EXPECT_EQ(0, bus.live);
}

int exchanges(const FakeBus& bus) {
    return static_cast<int>(std::count_if(bus.calls.begin(), bus.calls.end(), [](const std::string& call) {
        return call.starts_with("getSession");
    }));
}

TEST(SessionRetries, AreMadeOnlyWhenTheReplyBrokeOff) {
    for (const auto& row : mrl::test::table("retries.txt")) {
        SCOPED_TRACE(row[0]);
        Scripted scripted;
        std::istringstream failures(row[1]);
        for (std::string failure; std::getline(failures, failure, ';');) {
            const std::string where = failure.substr(2);
            scripted.bus.script(
                {answer("late"), [code = failure[0] - '0', where](const std::string& operation) {
                     if (operation == where) {
                         HBL_THROW(TavelTKException(code), "test");
                     }
                 }});
        }
        scripted.bus.answer(answer("in the end"));
        Call call;
        try {
            scripted.submit(call);
            EXPECT_EQ("answered", row[3]);
            EXPECT_EQ("in the end", call.result());
        } catch (TavelTKException& e) {
            EXPECT_THAT(e.getBackTrace(), Contains(HasSubstr(row[3])));
            EXPECT_THAT(e.getBackTrace().back(), HasSubstr("MRLSOAPSession::submit()"));
        }
        EXPECT_EQ(std::stoi(row[2]), exchanges(scripted.bus));
        EXPECT_EQ(0, scripted.bus.live);
    }
}

template <class PortType, MRLMessageI::MessageType TYPE>
MRLPortTypeBinding* bind() {
    return PortType::getInstance().createPortTypeBinding(TYPE);
}

TEST(SessionEndpoints, AreDecidedByServiceAndClientWithoutAnExplicitURI) {
    using Message = MRLMessageI;
    const struct {
        const char* client;
        MRLPortTypeBinding* binding;
        const char* refusal;
    } rows[] = {{"test", bind<MRLContentManagerServicePortType, Message::eMRLContentElect_Request>(),
                 "!contentManagerURI.empty(), \"Content Manager URI not found in configuration\""},
                {"test", bind<MRLJobServicePortType, Message::eMRLAsynchRun_Request>(),
                 "!dispatcherURI.empty(), \"Dispatcher URI not found in configuration\""},
                {"xRENQx", bind<MRLReportServicePortType, Message::eMRLAsynchRun_Request>(),
                 "pLoopback, \"Cannot send requests to the reportService\""},
                {"RENQ", bind<MRLBatchReportServicePortType, Message::eMRLAsynchRun_Request>(),
                 "pLoopback, \"Cannot send requests to the batchReportService\""}};
    for (const auto& row : rows) {
        const FakeBus bus;
        const MRLTavelHeader header;
        const MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, row.client);
        const HBLSmartPointer<MRLPortTypeBinding> binding(row.binding);
        expectAssert([&] { session.submit(*binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr); },
                     "HBL_ASSERT_NAMED(" + std::string(row.refusal) + ");");
        EXPECT_TRUE(bus.calls.empty());
    }
}

TEST_F(SessionTest, PlaybackWithoutTestInfoIsRefused) {
    session.setPlaybackBaseDir("/recorded");
    Call call;
    expectAssert(
        [&] { submit(call); },
        R"(HBL_ASSERT_NAMED(m_testInfo, "Playback is enabled, but the MRLTestInfo object is NULL.");)");
}

TEST_F(SessionTest, AMissingBusSessionIsAnAssertionAndNothingIsHeld) {
    Call call; // the script is empty
    expectAssert([&] { submit(call); }, "HBL_ASSERT(session);");
    EXPECT_EQ(0, bus.live);
}

TEST_F(SessionTest, ADeniedCallThatAsksForProtectionIsNeverSentAgainInClear) {
    setenv("MRL_KEY_STORE", "/dev/null/no.keys", 1);
    bus.answer(fault("cmNoPermission"));
    Call call;
    EXPECT_THROW(submit(call, MRLSOAPSession::eMRLSOAPTrustedOnDenial), HBLAssertError);
    EXPECT_EQ(1, exchanges(bus));
    EXPECT_EQ(0, bus.live);
    unsetenv("MRL_KEY_STORE");
}

} // namespace
