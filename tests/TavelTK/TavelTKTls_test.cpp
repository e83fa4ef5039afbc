// Exchanges over TLS: whom the toolkit trusts, and what it says when it does not.

#include "Exchange.h"
#include "TestAuthority.h"
#include "support/Processes.h"

#include <Poco/Net/Context.h>
#include <Poco/Net/SecureServerSocket.h>

#include <filesystem>
#include <map>
#include <sstream>

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

/// One row of the table: a peer and what the toolkit is told of trust.
struct TlsCase {
    explicit TlsCase(const std::vector<std::string>& row)
        : name(row[0])
        , isOld(row[2].starts_with("1.2"))
        , asksForCertificate(row[2].ends_with("asks"))
        , host(row[3])
        , error(row[5])
        , words(row.back()) {
        static const TestAuthority s_other;
        static const std::map<std::string, std::string> s_files{{"CA", authority().file()},
                                                                {"OTHER", s_other.file()},
                                                                {"CLIENT", authority().issue({})},
                                                                {"KEY", authority().issue({})}};
        std::istringstream(row[1]) >> certificate.names >> certificate.fromDay >> certificate.toDay >>
            certificate.use;
        std::istringstream all(row[4]);
        for (std::string property; all >> property;) {
            const std::size_t end = property.find('=');
            const auto file = s_files.find(property.substr(end + 1));
            properties.emplace_back(property.substr(0, end),
                                    file != s_files.end() ? file->second : property.substr(end + 1));
        }
    }

    Poco::Net::SecureServerSocket listener() const {
        return secureListener(authority().issue(certificate), isOld, asksForCertificate);
    }

    std::string name;
    bool isOld, asksForCertificate;
    std::string host, error, words;
    TestAuthority::Request certificate;
    Properties properties;
};

TEST(Tls, TrustsWhomItIsToldToAndSaysWhyNotOtherwise) {
    for (const auto& cells : mrl::test::table("tls.txt")) {
        const TlsCase row(cells);
        SCOPED_TRACE(row.name);
        ScriptedPeer peer({{reply("<r/>")}, {reply("<r/>")}}, row.listener());
        Toolkit toolkit;
        set(toolkit, row.properties);
        const std::string url = secureUrl(peer, row.host);
        if (row.error != "works") {
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
        for (const auto& cells : mrl::test::table("tls.txt")) {
            const TlsCase row(cells);
            ScriptedPeer peer({{"", Answer::reset}}, row.listener());
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
    expectFailure([&] { call(*toolkit.factory, secureUrl(plain)); }, tlsFailed, "is its port one for http?");
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
    const mrl::test::Child child([&] {
        toolkit.pool.take("any", mrl::detail::Clock::steady().now());
        return toolkit.pool.size() == 0 ? 0 : 1;
    });
    EXPECT_EQ(child.end(), 0);
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
    std::atomic<int> good = 0;
    mrl::test::inThreads(16, [&](int) {
        for (int i = 0; i < calls; ++i)
            good += call(*toolkit.factory, secureUrl(peer), large) == large;
    });
    EXPECT_EQ(good, 16 * calls);
}

} // namespace
