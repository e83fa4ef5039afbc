// A session over the real transport, against peers that answer badly: each call ends in one clear exception
// and the next one works.
#include "Common/MRLException.h"
#include "Session/MRLSOAPSession.h"
#include "Session/Replies.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/ConfigurationFile.h"
#include "support/ScriptedPeer.h"
#include "support/Table.h"
#include "support/Threads.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "TavelTK/TavelTKError.h"
#include "TavelTK/TavelTKException.h"
#include "TavelTK/TestAuthority.h"

#include <Poco/Net/Context.h>
#include <Poco/Net/SecureServerSocket.h>
#include <gmock/gmock.h>

#include <atomic>
#include <string>

using testing::HasSubstr;

namespace {

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

/// What ends a call, by its name; "-" for a failure of the reader, which is no error of the transport.
std::string failureOf(Session& session, std::string& message) {
    try {
        session.ask();
        return "nothing";
    } catch (TavelTKException& e) {
        message = e.getMessage();
        EXPECT_THAT(message, HasSubstr("127.0.0.1"));
        return findTavelTKError(e.getErrorCode())->name;
    } catch (MRLException& e) {
        message = e.getMessage();
        return "-";
    }
}

TEST(SessionOverTheWire, ABadReplyIsOneClearExceptionAndTheSessionGoesOn) {
    for (const auto& row : mrl::test::table("bad_replies.txt")) {
        SCOPED_TRACE(row[0]);
        const bool isBody = row[1] == "body";
        const bool isResult = row[1] == "result";
        const std::string body = isResult ? mrl::test::envelope("<r>" + row[2] + "</r>") : row[2];
        ScriptedPeer peer(
            {isBody || isResult ? Answer{reply(body)} : Answer{body, Answer::close}, {reply(good())}});
        Session session(peer.url());
        std::string message;
        EXPECT_EQ(failureOf(session, message), isBody || isResult ? "-" : row[1]);
        EXPECT_THAT(message, HasSubstr(row[3]));
        EXPECT_EQ("cm1", session.ask());
    }
}

TEST(SessionOverTheWire, TlsTrustsTheConfiguredAuthorityAndTheHostOfTheUrl) {
    const TestAuthority authority;
    const TestAuthority other;
    const struct {
        const char* what;
        std::string names;  // of the certificate
        std::string caFile; // as configured; none when empty
        const char* error;  // "nothing" when the call works
        const char* words;
    } rows[] = {
        {"trusted", "IP:127.0.0.1", authority.file(), "nothing", ""},
        {"another host", "DNS:bus.example", authority.file(), "certificateWrongHost", "not of '127.0.0.1'"},
        {"another authority", "IP:127.0.0.1", other.file(), "certificateUntrusted", "Test authority"},
        {"no authority", "IP:127.0.0.1", "", "certificateUntrusted", "Test authority"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Poco::Net::Context::Params identity;
        identity.privateKeyFile = identity.certificateFile = authority.issue({row.names});
        identity.verificationMode = Poco::Net::Context::VERIFY_NONE;
        const Poco::Net::Context::Ptr context(
            new Poco::Net::Context(Poco::Net::Context::TLS_SERVER_USE, identity));
        ScriptedPeer peer({{reply(good())}}, Poco::Net::SecureServerSocket(
                                                 Poco::Net::SocketAddress("127.0.0.1", 0), 16, context));
        const ConfigurationFile configuration(ConfigurationFile::withParameters(ConfigurationFile::parameter(
            "bus", row.caFile.empty() ? "" : ConfigurationFile::parameter("tls-ca-file", row.caFile))));
        Session session("https://" + peer.authority() + "/bus");
        std::string message;
        EXPECT_EQ(row.error, failureOf(session, message));
        EXPECT_THAT(message, HasSubstr(row.words));
        if (!message.empty()) { // else the connection is kept
            EXPECT_EQ(peer.incomplete(), "") << "not a byte of the request goes to whom nobody trusts";
        }
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

TEST(SessionOverTheWire, OneSessionServesSeveralThreads) {
    constexpr int THREADS = 8;
    constexpr int CALLS = 25;
    ScriptedPeer peer(std::vector<Answer>(THREADS * CALLS, {reply(good())}));
    Session session(peer.url());
    std::atomic<int> answered = 0;
    mrl::test::inThreads(THREADS, [&](int) {
        for (int call = 0; call < CALLS; ++call) {
            answered += session.ask() == "cm1" ? 1 : 0;
        }
    });
    EXPECT_EQ(THREADS * CALLS, answered);
    EXPECT_LE(peer.connections(), THREADS + 1) << "connections are kept and shared";
}

} // namespace
