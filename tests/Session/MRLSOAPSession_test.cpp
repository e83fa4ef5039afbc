#include "Session/MRLSOAPSession.h"
#include "Session/MRLServiceCallbackI.h"
#include "Session/MRLTestInfo.h"
#include "Session/Replies.h"
#include "Toolkit/MRLAsynchRun_Request.h"
#include "Toolkit/MRLBatchReportServicePortType.h"
#include "Toolkit/MRLContentElect_Request.h"
#include "Toolkit/MRLContentGetActiveContentManager_Request.h"
#include "Toolkit/MRLContentQueryCount_Request.h"
#include "Toolkit/MRLJobServicePortType.h"
#include "Toolkit/MRLReportServicePortType.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLTavelHeader.h"
#include "serialization/MRLSOAPFaultException.h"
#include "support/Failure.h"
#include "support/FakeBus.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "PLQStreams/PLQOutputStream.h"
#include "TavelTK/TavelTKException.h"

#include <gmock/gmock.h>

#include <cstdlib>

using mrl::test::answer;
using mrl::test::FakeBus;
using mrl::test::fault;
using Call = mrl::test::TextCall;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr const char* URL = "http://bus.example/service";

struct SessionTest : testing::Test {
    SessionTest() { session.setURI(URL); }
    void submit(Call& call, MRLSOAPSession::MRLSOAPTrusted trusted = MRLSOAPSession::eMRLSOAPUntrusted) {
        session.submit(*call.binding, trusted, nullptr);
    }
    MRLTavelHeader header;
    FakeBus bus;
    MRLSOAPSession session{&header, nullptr, nullptr, nullptr, nullptr, "test"};
};

TEST_F(SessionTest, APlainCallGivesEverythingBackInOrder) {
    bus.answer(answer("cm1"));
    Call call;
    submit(call);
    EXPECT_EQ("cm1", call.result());
    EXPECT_THAT(
        bus.calls,
        ElementsAre("getSession http://bus.example/service "
                    "<sessionConfigDocument><serviceID>test</serviceID></sessionConfigDocument> 1000",
                    "setProperty send-content-length 1", "openRequest 0",
                    "openEnvelope http://www.vantor.example/xmlns/prod/vantor/contentManagerService/202004/",
                    "closeEnvelope", "closeRequest", "openResponse", "openEnvelope(reply)",
                    "closeEnvelope(reply)", "closeResponse", "release", "delete factory"));
    EXPECT_EQ(0, bus.live);
    EXPECT_EQ(nullptr, call.binding->getInputMessage().getTavelHeader(nullptr)) << "the header was only lent";
}

TEST_F(SessionTest, ARequestWithoutAnyHeaderIsRefusedAndGivenBack) {
    bus.answer(answer("cm1"));
    session.setTavelHeader(nullptr);
    Call call;
    expectAssert([&] { submit(call); }, R"(HBL_ASSERT_NAMED(m_tavelHeader, "A Tavel header is required.");)");
    EXPECT_THAT(bus.calls, Contains("closeEnvelope"));
    EXPECT_EQ("delete factory", bus.calls.back());
    EXPECT_EQ(0, bus.live);
}

TEST_F(SessionTest, AFaultReachesTheCallerWithItsTrace) {
    bus.answer(fault("cmNoRead"));
    Call call;
    try {
        submit(call);
        FAIL() << "no fault";
    } catch (MRLSOAPFaultException& e) {
        EXPECT_THAT(e.getBackTrace().back(), HasSubstr("MRLSOAPSession::submit()"));
        EXPECT_STREQ("no", e.getSOAPFault().getFaultString());
    }
    EXPECT_EQ(0, bus.live);
    EXPECT_EQ(nullptr, call.binding->getInputMessage().getTavelHeader(nullptr));
}

/// A transport failure of a given code at a given operation of one exchange.
FakeBus::Step failing(int code, std::string where) {
    return {answer("late"), [code, where](const std::string& operation) {
                if (operation == where) {
                    HBL_THROW(TavelTKException(code), "test");
                }
            }};
}

int exchanges(const FakeBus& bus) {
    return static_cast<int>(std::count_if(bus.calls.begin(), bus.calls.end(), [](const std::string& call) {
        return call.starts_with("getSession");
    }));
}

struct Broken {
    const char* name;
    std::vector<std::pair<int, const char*>> failures; // code and operation, one for each exchange
    int exchanges;
    bool answered;
    const char* lastTraces; // text in the back trace when not answered
};

class BrokenExchange : public SessionTest, public testing::WithParamInterface<Broken> {};

TEST_P(BrokenExchange, IsRetriedOnlyWhenTheReplyBrokeOff) {
    for (const auto& [code, where] : GetParam().failures) {
        bus.script(failing(code, where));
    }
    bus.answer(answer("in the end"));
    Call call;
    try {
        submit(call);
        EXPECT_TRUE(GetParam().answered);
        EXPECT_EQ("in the end", call.result());
    } catch (TavelTKException& e) {
        EXPECT_FALSE(GetParam().answered) << e.getMessage();
        EXPECT_THAT(e.getBackTrace(), Contains(HasSubstr(GetParam().lastTraces)));
        EXPECT_THAT(e.getBackTrace().back(), HasSubstr("MRLSOAPSession::submit()"));
    }
    EXPECT_EQ(GetParam().exchanges, exchanges(bus));
    EXPECT_EQ(0, bus.live);
}

INSTANTIATE_TEST_SUITE_P(
    Session, BrokenExchange,
    testing::Values(
        Broken{"reply broke off once", {{6, "openEnvelope(reply)"}}, 2, true, ""},
        Broken{"another failure in between",
               {{6, "openEnvelope(reply)"}, {7, "openEnvelope(reply)"}},
               3,
               true,
               ""},
        Broken{"a retry that cannot send", {{6, "openEnvelope(reply)"}, {6, "closeRequest"}}, 3, true, ""},
        Broken{"another code first", {{7, "openEnvelope(reply)"}}, 1, false, "not HBL-BIT-0006"},
        Broken{"broke off while sending", {{6, "closeRequest"}}, 1, false, "MRLSOAPSession::submit()"},
        Broken{"not even a response", {{6, "openResponse"}}, 1, false, "MRLSOAPSession::submit()"},
        Broken{"ten retries in vain",
               std::vector<std::pair<int, const char*>>(11, {6, "openEnvelope(reply)"}), 11, false,
               "failed after reach retry limit."}),
    [](const auto& row) {
        std::string name = row.param.name;
        std::replace(name.begin(), name.end(), ' ', '_');
        return name;
    });

struct Endpoint {
    const char* name;
    const char* client;
    MRLPortTypeBinding* (*bind)();
    const char* refusal;
};

template <class PortType, MRLMessageI::MessageType TYPE>
MRLPortTypeBinding* bind() {
    return PortType::getInstance().createPortTypeBinding(TYPE);
}

class EndpointRule : public testing::TestWithParam<Endpoint> {};

TEST_P(EndpointRule, DecidesWithoutAnExplicitURI) {
    const FakeBus bus;
    const MRLTavelHeader header;
    const MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, GetParam().client);
    const HBLSmartPointer<MRLPortTypeBinding> binding(GetParam().bind());
    expectAssert([&] { session.submit(*binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr); },
                 GetParam().refusal);
    EXPECT_TRUE(bus.calls.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Session, EndpointRule,
    testing::Values(
        Endpoint{
            "content_manager", "test",
            bind<MRLContentManagerServicePortType, MRLMessageI::eMRLContentElect_Request>,
            R"(HBL_ASSERT_NAMED(!contentManagerURI.empty(), "Content Manager URI not found in configuration");)"},
        Endpoint{"another_service", "test", bind<MRLJobServicePortType, MRLMessageI::eMRLAsynchRun_Request>,
                 R"(HBL_ASSERT_NAMED(!dispatcherURI.empty(), "Dispatcher URI not found in configuration");)"},
        Endpoint{"report_server_to_itself", "xRENQx",
                 bind<MRLReportServicePortType, MRLMessageI::eMRLAsynchRun_Request>,
                 R"(HBL_ASSERT_NAMED(pLoopback, "Cannot send requests to the reportService");)"},
        Endpoint{"report_server_to_its_batch", "RENQ",
                 bind<MRLBatchReportServicePortType, MRLMessageI::eMRLAsynchRun_Request>,
                 R"(HBL_ASSERT_NAMED(pLoopback, "Cannot send requests to the batchReportService");)"}),
    [](const auto& row) { return std::string(row.param.name); });

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

struct Service : MRLServiceCallbackI {
    void handleRequest(MRLPortTypeBinding&, PLQOutputStream& out) const override {
        out.write(reply.data(), reply.size());
    }
    std::string reply;
};

TEST_F(SessionTest, ALoopbackIsAnsweredInTheProcess) {
    Service service;
    service.reply = answer("myself");
    Call call;
    session.submit(*call.binding, MRLSOAPSession::eMRLSOAPUntrusted, &service);
    EXPECT_EQ("myself", call.result());
    EXPECT_TRUE(bus.calls.empty());

    service.reply = fault("cmNoRead");
    EXPECT_THROW(session.submit(*call.binding, MRLSOAPSession::eMRLSOAPUntrusted, &service),
                 MRLSOAPFaultException);
    EXPECT_EQ(nullptr, call.binding->getInputMessage().getTavelHeader(nullptr));
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
