// Proxies, credentials, and peers that are asked before the body is sent.

#include "Exchange.h"
#include "TestAuthority.h"

#include <Poco/Exception.h>
#include <Poco/Net/Context.h>
#include <Poco/Net/SecureServerSocket.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using enum TavelTKError;

/// A proxy that opens one tunnel to 127.0.0.1 and remembers how it was asked.
class Tunnel {
public:
    explicit Tunnel(std::uint16_t port)
        : m_thread([this, port] {
            try {
                run(port);
            } catch (const Poco::Exception&) {
                // One of the ends has gone away.
            }
        }) {}
    ~Tunnel() { m_thread.join(); }
    std::string authority() const { return m_listener.address().toString(); }
    std::string request() const { return m_request; }

private:
    void run(std::uint16_t port) {
        Poco::Net::StreamSocket client = m_listener.acceptConnection();
        for (char byte; !m_request.ends_with("\r\n\r\n") && client.receiveBytes(&byte, 1) == 1;)
            m_request += byte;
        Poco::Net::StreamSocket target(Poco::Net::SocketAddress("127.0.0.1", port));
        const std::string answer = "HTTP/1.1 200 Connected\r\nVia: 1.1 tunnel\r\n\r\n";
        client.sendBytes(answer.data(), static_cast<int>(answer.size()));
        char piece[4096];
        for (;;)
            for (auto [from, to] : {std::pair(&client, &target), std::pair(&target, &client)})
                if (from->poll(Poco::Timespan(0, 1000), Poco::Net::Socket::SELECT_READ)) {
                    const int count = from->receiveBytes(piece, sizeof piece);
                    if (count <= 0)
                        return;
                    to->sendBytes(piece, count, MSG_NOSIGNAL);
                }
    }

    Poco::Net::ServerSocket m_listener = ScriptedPeer::loopbackListener();
    std::string m_request;
    std::thread m_thread;
};

TEST(Proxy, ForwardsPlainRequestsWithCredentialsThatAreNeverEchoed) {
    const auto file = std::filesystem::temp_directory_path() / ("mrl_proxy_" + std::to_string(::getpid()));
    ScriptedPeer proxy({{reply("<r/>")}, {reply("<r/>")}});
    Toolkit toolkit;
    for (const auto& [name, value] :
         std::initializer_list<std::pair<const char*, std::string>>{{"proxy", "http://" + proxy.authority()},
                                                                    {"no-proxy", "other.invalid, 127.0.0.1"},
                                                                    {"user", "u"},
                                                                    {"password", "p:1"},
                                                                    {"proxy-user", "q"},
                                                                    {"proxy-password", "r"},
                                                                    {"trace-id", "4711"}})
        toolkit.factory->setProperty(name, value);
    SessionPtr exchange = session(*toolkit.factory, "http://bus.invalid:9300/x?y");
    exchange->echo(file.c_str(), "wb", 1);
    sendEnvelope(*exchange, "<e/>");
    EXPECT_EQ(receiveEnvelope(*exchange), "<r/>");
    const std::string head = "POST http://bus.invalid:9300/x?y HTTP/1.1\r\nHost: bus.invalid:9300\r\n";
    const std::string rest = "User-Agent: mrl\r\nAccept: text/xml, multipart/related\r\n"
                             "SOAPAction: \"urn:action\"\r\nContent-Type: text/xml; charset=utf-8\r\n"
                             "X-MRL-Request-Id: token\r\nX-MRL-Trace-Id: 4711\r\n"
                             "Content-Length: 4\r\n\r\n<e/>";
    EXPECT_EQ(proxy.request(0),
              head + "Authorization: Basic dTpwOjE=\r\nProxy-Authorization: Basic cTpy\r\n" + rest);
    std::stringstream echoed;
    echoed << std::ifstream(file).rdbuf();
    EXPECT_EQ(echoed.str(),
              head + "Authorization: ***\r\nProxy-Authorization: ***\r\n" + rest + reply("<r/>"));
    std::filesystem::remove(file);
    call(*toolkit.factory, proxy.url()); // an exception from the proxy: straight to the peer
    EXPECT_TRUE(proxy.request(1).starts_with("POST /bus HTTP/1.1\r\n"));
}

TEST(Proxy, CarriesTlsThroughATunnelThatAloneSeesItsCredentials) {
    const TestAuthority authority;
    Poco::Net::Context::Params params;
    params.privateKeyFile = params.certificateFile = authority.issue({});
    params.verificationMode = Poco::Net::Context::VERIFY_NONE;
    const Poco::Net::Context::Ptr context(new Poco::Net::Context(Poco::Net::Context::TLS_SERVER_USE, params));
    const Poco::Net::SecureServerSocket listener(Poco::Net::SocketAddress("127.0.0.1", 0), 4, context);
    ScriptedPeer peer({{reply("<r/>")}}, listener);
    Tunnel tunnel(listener.address().port());
    Toolkit toolkit;
    toolkit.factory->setProperty("proxy", tunnel.authority());
    toolkit.factory->setProperty("proxy-user", std::string("q"));
    toolkit.factory->setProperty("tls-ca-file", authority.file());
    EXPECT_EQ(call(*toolkit.factory, "https://" + peer.authority() + "/bus"), "<r/>");
    EXPECT_EQ(tunnel.request(), "CONNECT " + peer.authority() + " HTTP/1.1\r\nHost: " + peer.authority() +
                                    "\r\nUser-Agent: mrl\r\nProxy-Authorization: Basic cTo=\r\n\r\n");
    EXPECT_EQ(peer.request(0).find("Proxy-Authorization"), std::string::npos);
}

TEST(Proxy, ThatMakesNoTunnelIsNamedWithItsAnswer) {
    for (const auto& row : mrl::test::table("no_tunnels.txt")) {
        ScriptedPeer proxy({{row[0], afterwards(row[1]), false}});
        Toolkit toolkit;
        toolkit.factory->setProperty("proxy", proxy.authority());
        toolkit.factory->setProperty("connect-time-limit", row[1] == "silence" ? 60 : 30000);
        toolkit.factory->setProperty("max-header-bytes", 256);
        expectFailure([&] { call(*toolkit.factory, "https://bus.invalid/"); }, row[2], row[3]);
    }
}

TEST(Consent, IsAwaitedAndABodyThatIsNotWantedIsNeverSent) {
    for (const int withLength : {0, 1}) {
        const std::string refusal = "HTTP/1.1 401 No\r\nWWW-Authenticate: Basic\r\nContent-Length: 0\r\n\r\n";
        ScriptedPeer peer({{"HTTP/1.1 102 Wait\r\n\r\nHTTP/1.1 100 Continue\r\n\r\n", Answer::keep, false},
                           {reply("<r/>")},
                           {refusal, Answer::keep, false}});
        Toolkit toolkit;
        toolkit.factory->setProperty("expect-continue", 5000);
        toolkit.factory->setProperty("send-content-length", withLength);
        EXPECT_EQ(call(*toolkit.factory, peer.url()), "<r/>");
        EXPECT_NE(peer.request(0).find("\r\nExpect: 100-continue\r\n\r\n"), std::string::npos);
        expectFailure([&] { call(*toolkit.factory, peer.url(), "<secret/>"); }, authenticationRequired,
                      "asking for 'Basic'; no credentials were given");
        EXPECT_EQ(toolkit.pool.size(), 0u) << "the peer still waits for a body on it";
        EXPECT_EQ(peer.incomplete().find("<secret/>"), std::string::npos);
    }
    ScriptedPeer silent({{reply("<r/>")}});
    Toolkit toolkit;
    toolkit.factory->setProperty("expect-continue", 20);
    EXPECT_EQ(call(*toolkit.factory, silent.url()), "<r/>") << "it knows nothing of expectations";
}

TEST(Credentials, ThatCouldForgeOrLeakAreRefused) {
    Toolkit toolkit;
    const auto set = [&](const char* name, const char* value) {
        return [&toolkit, name, value] { toolkit.factory->setProperty(name, std::string(value)); };
    };
    expectFailure(set("user", "a:b"), badArgument, "'a:b'");
    expectFailure(set("password", "secret\n"), badArgument, "'***'");
    expectFailure(set("proxy", "https://proxy:1"), badArgument, "host:port");
    expectFailure(set("proxy", "u:p@proxy:1"), badArgument, "host:port");
    expectFailure(set("trace-id", "a b"), badArgument, "'a b'");
}

} // namespace
