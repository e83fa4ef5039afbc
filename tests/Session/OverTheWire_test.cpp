// A session over the real transport, against peers that answer badly: each call ends in one clear exception
// and the next one works.
#include "Common/MRLException.h"
#include "Session/MRLSOAPSession.h"
#include "Session/Replies.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/ScriptedPeer.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "TavelTK/TavelTKError.h"
#include "TavelTK/TavelTKException.h"

#include <gmock/gmock.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using testing::HasSubstr;

namespace {

std::string envelope(const std::string& result) {
    return mrl::test::envelope("<r>" + result + "</r>");
}

std::string good() {
    return mrl::test::answer("cm1");
}

struct Session {
    explicit Session(const std::string& url) { session.setURI(url); }
    std::string ask() {
        const mrl::test::TextCall call;
        session.submit(*call.binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
        return call.result();
    }
    MRLTavelHeader header;
    MRLSOAPSession session{&header, nullptr, nullptr, nullptr, nullptr, "test"};
};

struct Bad {
    const char* name;
    Answer answer;
    TavelTKError error;  // connectionBroke stands for a failure of the reader, which names no error
    const char* message; // part of what the host is told
};

constexpr TavelTKError READER = TavelTKError::connectionBroke;

class BadReply : public testing::TestWithParam<Bad> {};

TEST_P(BadReply, IsOneClearExceptionAndTheSessionGoesOn) {
    ScriptedPeer peer({GetParam().answer, {reply(good())}});
    Session session(peer.url());
    try {
        session.ask();
        FAIL() << "taken for an answer";
    } catch (TavelTKException& e) {
        EXPECT_EQ(static_cast<int>(GetParam().error), e.getErrorCode()) << e.getMessage();
        EXPECT_THAT(e.getMessage(), HasSubstr(GetParam().message));
        EXPECT_THAT(e.getMessage(), HasSubstr("127.0.0.1"));
    } catch (MRLException& e) {
        EXPECT_EQ(READER, GetParam().error) << e.getMessage();
        EXPECT_THAT(e.getMessage(), HasSubstr(GetParam().message));
    }
    EXPECT_EQ("cm1", session.ask());
}

INSTANTIATE_TEST_SUITE_P(
    Session, BadReply,
    testing::Values(
        Bad{"empty", {reply("")}, READER, ""}, Bad{"not_XML", {reply("sorry")}, READER, ""},
        Bad{"not_SOAP", {reply("<html><body/></html>")}, READER, "Envelope"},
        Bad{"broken_off_inside_its_own_length", {reply(good().substr(0, good().size() - 20))}, READER, ""},
        Bad{"document_type", {reply("<!DOCTYPE x [<!ENTITY a 'b'>]>" + good().substr(38))}, READER, ""},
        Bad{"external_entity", {reply("<!DOCTYPE x SYSTEM 'file:///etc/passwd'><x/>")}, READER, ""},
        Bad{"unknown_type_at_a_known_place",
            {reply(envelope("<result xsi:type='b:report'><b:name/></result>"))},
            READER,
            "result"},
        Bad{"element_below_a_text",
            {reply(envelope("<result xsi:type='xs:string'><b:a/></result>"))},
            READER,
            "result"},
        Bad{"nested_too_deep",
            {reply(envelope("<result/><more>" +
                            [] {
                                std::string deep;
                                for (int i = 0; i < 50000; ++i) {
                                    deep += "<y>";
                                }
                                return deep;
                            }()))},
            READER,
            "512"},
        Bad{"another_charset",
            {reply(good(), "200 OK", "text/xml; charset=koi8-r")},
            TavelTKError::wrongCharset,
            "koi8-r"},
        Bad{"HTML_of_a_gateway",
            {reply("<html>Bad Gateway</html>", "502 Bad Gateway", "text/html")},
            TavelTKError::notSoapReply,
            "502"},
        Bad{"200_MB",
            {"HTTP/1.1 200 OK\r\nContent-Type: text/xml; charset=utf-8\r\nContent-Length: 209715200\r\n\r\n" +
                 good(),
             Answer::close},
            TavelTKError::replyTooLarge,
            ""},
        Bad{"closes_at_once", {"", Answer::close}, TavelTKError::closedBeforeReply, ""},
        Bad{"no_HTTP", {"220 mail.example ESMTP\r\n\r\n", Answer::close}, TavelTKError::badHttpReply, ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SessionOverTheWire, ABusThatIsNotThereIsNamed) {
    std::string url;
    {
        const ScriptedPeer gone;
        url = gone.url();
    }
    Session session(url);
    try {
        session.ask();
        FAIL() << "answered by nobody";
    } catch (TavelTKException& e) {
        EXPECT_EQ(static_cast<int>(TavelTKError::connectionRefused), e.getErrorCode());
        EXPECT_THAT(e.getMessage(), HasSubstr("127.0.0.1"));
    }
}

TEST(SessionOverTheWire, AReplyThatBreaksOffIsAskedForAgain) {
    const std::string whole = reply(good());
    ScriptedPeer peer({{whole.substr(0, whole.size() - 100), Answer::close}, {whole}});
    Session session(peer.url());
    EXPECT_EQ("cm1", session.ask());
    const auto apartFromId = [](std::string request) { // which tells the attempts apart
        const std::size_t at = request.find("X-MRL-Request-Id: ");
        return request.erase(at, request.find("\r\n", at) - at);
    };
    EXPECT_EQ(apartFromId(peer.request(0)), apartFromId(peer.request(1))) << "byte for byte";
}

TEST(SessionOverTheWire, AReplyThatAlwaysBreaksOffEndsTheRetries) {
    const std::string whole = reply(good());
    ScriptedPeer peer(std::vector<Answer>(11, {whole.substr(0, whole.size() - 100), Answer::close}));
    Session session(peer.url());
    try {
        session.ask();
        FAIL() << "taken for an answer";
    } catch (TavelTKException& e) {
        EXPECT_EQ(static_cast<int>(TavelTKError::connectionBroke), e.getErrorCode());
        EXPECT_EQ("HBL-BIT-0006", e.getErrorCodeString());
    }
}

TEST(SessionOverTheWire, OneSessionServesSeveralThreads) {
    constexpr int THREADS = 8;
    constexpr int CALLS = 25;
    ScriptedPeer peer(std::vector<Answer>(THREADS * CALLS, {reply(good())}));
    Session session(peer.url());
    std::atomic<int> answered = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&] {
            for (int call = 0; call < CALLS; ++call) {
                answered += session.ask() == "cm1" ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(THREADS * CALLS, answered);
    EXPECT_LE(peer.connections(), THREADS + 1) << "connections are kept and shared";
}

} // namespace
