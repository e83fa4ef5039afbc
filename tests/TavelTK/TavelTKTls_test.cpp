// Exchanges over TLS: whom the toolkit trusts, and what it says when it does not.

#include "Exchange.h"
#include "TestAuthority.h"
#include "support/ScriptedPeer.h"

#include <Poco/Net/Context.h>
#include <Poco/Net/SecureServerSocket.h>

#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using enum TavelTKError;
using Poco::Net::Context;
using Properties = std::vector<std::pair<std::string, std::string>>;

const TestAuthority& authority() {
    static const TestAuthority s_authority;
    return s_authority;
}

Poco::Net::SecureServerSocket secureListener(const std::string& identity, bool isOld = false,
                                             bool asksForCertificate = false) {
    Context::Params params;
    params.privateKeyFile = params.certificateFile = identity;
    params.caLocation = authority().file();
    params.verificationMode = asksForCertificate ? Context::VERIFY_STRICT : Context::VERIFY_NONE;
    Context::Ptr context(new Context(Context::TLS_SERVER_USE, params));
    if (isOld)
        context->disableProtocols(Context::PROTO_TLSV1_3);
    return {Poco::Net::SocketAddress("127.0.0.1", 0), 16, context};
}

std::string secureUrl(const ScriptedPeer& peer, const std::string& host = "127.0.0.1") {
    return "https://" + host + peer.authority().substr(peer.authority().find(':')) + "/bus";
}

void set(Toolkit& toolkit, const Properties& properties) {
    for (const auto& [name, value] : properties)
        toolkit.factory->setProperty(name, value);
}

Properties trusting(Properties more = {}) {
    more.emplace_back("tls-ca-file", authority().file());
    return more;
}

struct TlsCase {
    const char* name;
    TestAuthority::Request certificate;
    Properties properties;
    TavelTKError error; ///< connectionBroke: none, the exchange is to work
    std::string words = "";
    std::string host = "127.0.0.1";
    bool isOld = false;
    bool asksForCertificate = false;
};

constexpr TavelTKError none = connectionBroke;

std::vector<TlsCase> tlsCases() {
    static const std::string s_client = authority().issue({});
    static const TestAuthority s_other;
    const std::string here = "127.0.0.1";
    return {
        {"an address", {}, trusting(), none},
        {"a name", {}, trusting(), none, "", "localhost"},
        {"TLS 1.2", {}, trusting(), none, "", here, true},
        {"a client certificate",
         {},
         trusting({{"tls-certificate-file", s_client}}),
         none,
         "",
         here,
         false,
         true},
        {"another authority, unchecked",
         {},
         {{"tls-ca-file", s_other.file()}, {"tls-verify-certificate", "0"}},
         none},
        {"another host, unchecked", {"DNS:other"}, trusting({{"tls-verify-host", "0"}}), none},
        {"an expired certificate", {"IP:127.0.0.1", -3, -1}, trusting(), certificateExpired, "has expired"},
        {"a certificate of tomorrow",
         {"IP:127.0.0.1", 1, 2},
         trusting(),
         certificateExpired,
         "not yet valid; certificate of '/CN=Test peer' by '/CN=Test authority'"},
        {"another host", {"DNS:other"}, trusting(), certificateWrongHost, "not of 'localhost'", "localhost"},
        {"another address", {"IP:127.0.0.2"}, trusting(), certificateWrongHost, "not of '127.0.0.1'"},
        {"another host, authority unchecked",
         {"DNS:other"},
         trusting({{"tls-verify-certificate", "0"}}),
         certificateWrongHost},
        {"another authority", {}, {{"tls-ca-file", s_other.file()}}, certificateUntrusted, "signature"},
        {"the system's authorities", {}, {}, certificateUntrusted, "self-signed"},
        {"a certificate for clients",
         {"IP:127.0.0.1", -1, 1, "clientAuth"},
         trusting(),
         certificateRefused,
         "purpose"},
        {"too old a version", {}, trusting({{"tls-min-version", "1.3"}}), tlsFailed, "version", here, true},
        {"no client certificate",
         {},
         trusting(),
         clientCertificateRefused,
         "certificate required",
         here,
         false,
         true},
        {"no client certificate, TLS 1.2",
         {},
         trusting(),
         clientCertificateRefused,
         "none was given (tls-certificate-file)",
         here,
         true,
         true},
        {"a missing file",
         {},
         {{"tls-ca-file", "/no/file"}},
         tlsSetupFailed,
         "(tls-ca-file) '/no/file' cannot be used (No such file"},
        {"a missing directory", {}, {{"tls-ca-directory", "/no/dir"}}, tlsSetupFailed, "'/no/dir'"},
        {"a file that is none",
         {},
         trusting({{"tls-certificate-file", "/dev/null"}}),
         tlsSetupFailed,
         "'/dev/null'"},
        {"the key of another",
         {},
         trusting({{"tls-certificate-file", s_client}, {"tls-key-file", authority().issue({})}}),
         tlsSetupFailed,
         "key"}};
}

TEST(Tls, TrustsWhomItIsToldToAndSaysWhyNotOtherwise) {
    for (const TlsCase& row : tlsCases()) {
        SCOPED_TRACE(row.name);
        ScriptedPeer peer(
            {{reply("<r/>")}, {reply("<r/>")}},
            secureListener(authority().issue(row.certificate), row.isOld, row.asksForCertificate));
        Toolkit toolkit;
        set(toolkit, row.properties);
        const std::string url = secureUrl(peer, row.host);
        if (row.error != none) {
            expectFailure([&] { call(*toolkit.factory, url); }, row.error, row.words);
            EXPECT_EQ(toolkit.pool.size(), 0u);
            continue;
        }
        EXPECT_EQ(call(*toolkit.factory, url), "<r/>");
        EXPECT_EQ(call(*toolkit.factory, url), "<r/>");
        EXPECT_EQ(peer.connections(), 1) << "it is kept";
    }
}

TEST(Tls, LeavesNoDescriptorBehindHoweverItFails) {
    const auto run = [] {
        for (const TlsCase& row : tlsCases()) {
            ScriptedPeer peer({{"", Answer::reset}}, secureListener(authority().issue(row.certificate),
                                                                    row.isOld, row.asksForCertificate));
            Toolkit toolkit;
            set(toolkit, row.properties);
            EXPECT_THROW(call(*toolkit.factory, secureUrl(peer, row.host)), TavelTKException) << row.name;
        }
        const std::filesystem::directory_iterator open("/proc/self/fd");
        return std::distance(begin(open), end(open));
    };
    EXPECT_EQ(run(), run());
}

TEST(Tls, IsRefusedByAPeerThatSpeaksNoneInItsOwnTime) {
    Toolkit toolkit;
    set(toolkit, trusting());
    ScriptedPeer plain({{"HTTP/1.1 400 Bad Request\r\n\r\n", Answer::close, false}});
    expectFailure([&] { call(*toolkit.factory, secureUrl(plain)); }, tlsFailed, "wrong version number");
    ScriptedPeer closing({{"", Answer::cut, false}});
    expectFailure([&] { call(*toolkit.factory, secureUrl(closing)); }, tlsFailed, "connecting to");
    toolkit.factory->setProperty("connect-time-limit", 60);
    ScriptedPeer silent({{"", Answer::silence, false}});
    expectFailure([&] { call(*toolkit.factory, secureUrl(silent)); }, tlsTimedOut,
                  "60 ms have passed (connect-time-limit)");
}

TEST(Tls, TellsTheEndOfAReplyFromACutOne) {
    const std::string bytes = "HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n<r/>";
    ScriptedPeer peer({{bytes, Answer::close}, {bytes, Answer::cut}}, secureListener(authority().issue({})));
    Toolkit toolkit;
    set(toolkit, trusting());
    EXPECT_EQ(call(*toolkit.factory, secureUrl(peer)), "<r/>");
    expectFailure([&] { call(*toolkit.factory, secureUrl(peer)); }, connectionBroke,
                  "without ending the TLS");
}

TEST(Tls, ConnectionIsSharedOnlyByThoseWhoTrustAlikeAndReplacedWhenItHasGone) {
    ScriptedPeer peer({{reply("<1/>")}, {reply("<2/>"), Answer::close}, {reply("<3/>")}},
                      secureListener(authority().issue({})));
    Toolkit toolkit;
    set(toolkit, trusting());
    EXPECT_EQ(call(*toolkit.factory, secureUrl(peer)), "<1/>");
    toolkit.factory->setProperty("tls-min-version", "1.3");
    EXPECT_EQ(call(*toolkit.factory, secureUrl(peer)), "<2/>");
    EXPECT_EQ(peer.connections(), 2);
    while (peer.open() == 2)
        std::this_thread::yield();
    EXPECT_EQ(call(*toolkit.factory, secureUrl(peer)), "<3/>");
    EXPECT_EQ(peer.connections(), 3);
}

TEST(Tls, ConnectionOfAParentIsNeitherUsedNorEndedByItsChild) {
    ScriptedPeer peer({{reply("<1/>")}, {reply("<2/>")}}, secureListener(authority().issue({})));
    Toolkit toolkit;
    set(toolkit, trusting());
    call(*toolkit.factory, secureUrl(peer));
    if (const pid_t child = ::fork(); child == 0) {
        toolkit.pool.take("any", mrl::detail::Clock::steady().now());
        ::_exit(toolkit.pool.size() == 0 ? 0 : 1);
    } else {
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(call(*toolkit.factory, secureUrl(peer)), "<2/>");
    EXPECT_EQ(peer.connections(), 1);
}

TEST(Tls, ReadsAFileAgainOnceItHasChanged) {
    mrl::detail::TlsContexts contexts;
    mrl::detail::TlsSettings settings;
    settings.caFile = authority().issue({});
    const mrl::detail::TlsContext first = contexts.get(settings);
    EXPECT_EQ(contexts.get(settings), first);
    std::filesystem::rename(authority().issue({}), settings.caFile);
    EXPECT_NE(contexts.get(settings), first);
}

TEST(Tls, CarriesSixteenThreadsOfOneFactoryWithLargeBodies) {
    constexpr int calls = 3;
    const std::string large(300000, 'x');
    ScriptedPeer peer(std::vector<Answer>(16 * calls, {reply(large)}), secureListener(authority().issue({})));
    Toolkit toolkit;
    set(toolkit, trusting());
    std::vector<std::thread> hosts;
    std::atomic<int> good = 0;
    for (int thread = 0; thread < 16; ++thread)
        hosts.emplace_back([&] {
            for (int i = 0; i < calls; ++i)
                good += call(*toolkit.factory, secureUrl(peer), large) == large;
        });
    for (std::thread& host : hosts)
        host.join();
    EXPECT_EQ(good, 16 * calls);
}

} // namespace
