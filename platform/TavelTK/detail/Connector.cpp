#include "TavelTK/detail/Connector.h"

#include "HBLCore/HBLBase64.h"
#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/TlsChannel.h"

#include <Poco/Net/DNS.h>
#include <Poco/Net/NetException.h>

namespace mrl::detail {

std::string basicCredentials(const std::string& user, const std::string& password) {
    return "Basic " + HBLBase64Encoded(user + ":" + password);
}

Connector::Connector(const Route& route, const SessionOptions& options, Limit limit, const Clock& clock,
                     TlsContexts& contexts)
    : m_route(route)
    , m_options(options)
    , m_limit(std::move(limit))
    , m_clock(clock)
    , m_contexts(contexts)
    , m_hop(route.target.authority()) {
    if (route.proxy)
        m_hop = route.proxy->authority() + ", the proxy to " + m_hop;
}

void Connector::fail(TavelTKError error, std::string_view cause, const HBLFileLocation& where) const {
    detail::fail(error, TavelTKPhase::connect, m_hop, cause, where);
}

std::vector<Poco::Net::IPAddress> Connector::resolve() const {
    const std::string& host = m_route.nextHop().host;
    if (Poco::Net::IPAddress address; Poco::Net::IPAddress::tryParse(host, address))
        return {address};
    try {
        std::vector<Poco::Net::IPAddress> found = Poco::Net::DNS::hostByName(host).addresses();
        if (!found.empty())
            return found;
    } catch (const Poco::Exception& e) {
        fail(TavelTKError::hostUnknown, e.displayText());
    }
    fail(TavelTKError::hostUnknown, "the name has no address");
}

Poco::Net::StreamSocket Connector::connectSocket() const {
    const std::vector<Poco::Net::IPAddress> addresses = resolve();
    TavelTKError error = TavelTKError::connectFailed;
    std::string cause;
    for (const Poco::Net::IPAddress& address : addresses) {
        const auto left = std::chrono::ceil<std::chrono::microseconds>(m_limit.until - m_clock.now());
        if (left.count() <= 0)
            fail(TavelTKError::connectTimedOut, m_limit.text);
        try {
            Poco::Net::StreamSocket socket;
            socket.connect({address, m_route.nextHop().port}, Poco::Timespan(left.count()));
            return socket;
        } catch (const Poco::TimeoutException&) {
            fail(TavelTKError::connectTimedOut, m_limit.text);
        } catch (const Poco::Net::ConnectionRefusedException& e) {
            error = TavelTKError::connectionRefused;
            cause = e.displayText();
        } catch (const Poco::Exception& e) {
            error = TavelTKError::connectFailed;
            cause = e.displayText();
        }
    }
    fail(error, cause);
}

std::unique_ptr<Connection> Connector::connect() {
    TlsContext context;
    if (m_route.target.isTls)
        context = m_contexts.get(m_options.tls); // first, so that nobody is called in vain
    auto socket = std::make_unique<SocketChannel>(connectSocket());
    if (m_route.isTunnelled())
        openTunnel(*socket);
    if (!m_route.target.isTls)
        return std::make_unique<Connection>(std::move(socket));
    m_hop = m_route.target.authority();
    return std::make_unique<Connection>(secure(std::move(socket), std::move(context)));
}

IoResult Connector::attempt(const Channel& channel, const std::function<Attempt()>& step) const {
    return repeat(channel, step, m_limit.until, m_clock);
}

void Connector::openTunnel(SocketChannel& channel) {
    const std::string target = m_route.target.authority();
    std::string request = "CONNECT " + target + " HTTP/1.1\r\nHost: " + target + "\r\nUser-Agent: mrl\r\n";
    if (!m_options.proxyUser.empty())
        request +=
            "Proxy-Authorization: " + basicCredentials(m_options.proxyUser, m_options.proxyPassword) + "\r\n";
    request += "\r\n";
    for (std::string_view left = request; !left.empty();) {
        const IoResult sent = attempt(channel, [&] { return channel.send(left); });
        if (sent.status == IoResult::timedOut)
            fail(TavelTKError::connectTimedOut, m_limit.text);
        if (sent.status != IoResult::done)
            fail(TavelTKError::proxyFailed, sent.cause);
        left.remove_prefix(sent.count);
    }

    const std::string reply = readTunnelReply(channel);
    const std::string line = printable(reply.substr(0, reply.find_first_of("\r\n")), 100);
    if (!reply.starts_with("HTTP/1.") || reply.size() < 12)
        fail(TavelTKError::proxyFailed, "its answer '" + line + "' is no HTTP");
    const std::string status = reply.substr(9, 3);
    if (status == "407")
        fail(TavelTKError::proxyAuthenticationRequired,
             "it answered '" + line + "'" +
                 (m_options.proxyUser.empty() ? "; none were given (proxy-user, proxy-password)" : ""));
    if (!status.starts_with('2'))
        fail(TavelTKError::proxyFailed, "it answered '" + line + "'");
}

// Byte for byte up to the empty line: what follows would belong to the tunnel.
std::string Connector::readTunnelReply(SocketChannel& channel) {
    std::string reply;
    while (!reply.ends_with("\r\n\r\n") && !reply.ends_with("\n\n")) {
        char byte = 0;
        const IoResult read = attempt(channel, [&] { return channel.receive(&byte, 1); });
        if (read.status == IoResult::timedOut)
            fail(TavelTKError::connectTimedOut, m_limit.text);
        if (read.status != IoResult::done)
            fail(TavelTKError::proxyFailed,
                 read.cause.empty() ? "it closed the connection without an answer" : read.cause);
        reply += byte;
        if (reply.size() > static_cast<std::size_t>(m_options.maxHeaderBytes))
            fail(TavelTKError::proxyFailed, "its answer is longer than its limit (max-header-bytes)");
    }
    return reply;
}

std::unique_ptr<Channel> Connector::secure(std::unique_ptr<SocketChannel> socket, TlsContext context) {
    auto channel = std::make_unique<TlsChannel>(std::move(socket), std::move(context), m_options.tls,
                                                m_route.target.host);
    const IoResult result = attempt(*channel, [&] { return channel->handshake(); });
    switch (result.status) {
    case IoResult::done: return channel;
    case IoResult::timedOut: fail(TavelTKError::tlsTimedOut, m_limit.text);
    case IoResult::closed:
        fail(TavelTKError::tlsFailed, "the peer closed the connection while it was set up");
    case IoResult::failed: break;
    }
    fail(result.error.value_or(TavelTKError::tlsFailed), result.cause);
}

} // namespace mrl::detail
