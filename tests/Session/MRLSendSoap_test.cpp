#include "Session/MRLSendSoap.h"
#include "serialization/MRLSOAPFaultException.h"
#include "support/Failure.h"
#include "support/FakeBus.h"
#include "support/ScriptedPeer.h"

#include "HBLCore/HBLUnknownError.h"
#include "TavelTK/TavelTKException.h"

#include <gmock/gmock.h>

#include <stdexcept>

using mrl::test::FakeBus;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::string ENVELOPE =
    R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV="http://schemas.xmlsoap.org/soap/envelope/"><SOAP-ENV:Body>)";

std::string fault(const std::string& body) {
    return ENVELOPE + "<SOAP-ENV:Fault>" + body + "</SOAP-ENV:Fault></SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

struct SendSoap : testing::Test {
    void send(const char* url = "http://bus.example/") {
        MRLSendSoap::send(url, "<request/>", "an:action", response, attachment);
    }
    std::string response = "before";
    std::string attachment = "before";
};

TEST_F(SendSoap, CarriesTextBothWaysAndTheFirstAttachmentOnly) {
    const std::string part = "\r\n--B\r\nContent-ID: <";
    const std::string envelope(10000, 'e');
    ScriptedPeer peer({{reply("--B\r\nContent-Type: text/xml\r\n\r\n" + envelope + part + "1>\r\n\r\n" +
                                  std::string(5000, 'a') + part + "2>\r\n\r\nb\r\n--B--\r\n",
                              "200 OK", "multipart/related; boundary=B; type=\"text/xml\"")}});
    send(peer.url().c_str());
    EXPECT_EQ(envelope, response);
    EXPECT_EQ(std::string(5000, 'a'), attachment);
    EXPECT_THAT(peer.request(0), HasSubstr("SOAPAction: \"an:action\""));
    EXPECT_THAT(peer.request(0), testing::EndsWith("\r\n\r\n<request/>"));
}

TEST_F(SendSoap, GivesEverythingBackInOrder) {
    FakeBus bus;
    bus.answer("<reply/>");
    send();
    EXPECT_EQ("<reply/>", response);
    EXPECT_EQ("before", attachment);
    EXPECT_THAT(bus.calls,
                ElementsAre("getSession http://bus.example/ "
                            "<sessionConfigDocument><serviceID>RENQ</serviceID></sessionConfigDocument> 1000",
                            "setProperty send-content-length 1", "openRequest 0", "openEnvelope an:action",
                            "closeEnvelope", "closeRequest", "openResponse", "openEnvelope(reply)",
                            "closeEnvelope(reply)", "closeResponse", "release", "delete factory"));
    expectAssert([&] { MRLSendSoap::send("", nullptr, "", response, attachment); },
                 R"(HBL_ASSERT_NAMED(requestMessage, "The 'requestMessage' cannot be NULL.");)");
}

TEST_F(SendSoap, AFaultIsHandedOverAndThrown) {
    FakeBus bus;
    const std::string reply = fault("<faultcode>Client</faultcode><faultstring>no</faultstring>");
    bus.answer(reply);
    try {
        send();
        FAIL() << "no fault";
    } catch (MRLSOAPFaultException& e) {
        EXPECT_THAT(e.getBackTrace().back(), HasSubstr("MRLSendSoap::send [HBL_RETHROW]"));
    }
    EXPECT_EQ(reply, response);
    EXPECT_EQ(0, bus.live);
}

TEST_F(SendSoap, AFailureGivesBackWhatIsHeldWhateverItIs) {
    FakeBus bus;
    const auto failing = [](const char* where, auto failure) {
        return FakeBus::Step{"<reply/>", [where, failure](const std::string& operation) {
                                 if (operation == where)
                                     failure();
                             }};
    };
    bus.script(failing("openEnvelope an:action", [] { throw std::runtime_error("any"); }));
    EXPECT_THROW(send(), HBLUnknownError);
    EXPECT_EQ((std::vector<std::string>{"closeRequest", "release", "delete factory"}),
              std::vector<std::string>(bus.calls.end() - 3, bus.calls.end()));

    bus.script(failing("openEnvelope(reply)", [] { HBL_THROW(TavelTKException(6), "test"); }));
    try {
        send();
        FAIL() << "no failure";
    } catch (TavelTKException& e) { // and no second attempt
        EXPECT_THAT(e.getBackTrace().back(), HasSubstr("MRLSendSoap::send() [HBL_RETHROW]"));
    }
    EXPECT_EQ((std::vector<std::string>{"closeResponse", "release", "delete factory"}),
              std::vector<std::string>(bus.calls.end() - 3, bus.calls.end()));
    EXPECT_EQ(0, bus.live);
}

} // namespace
