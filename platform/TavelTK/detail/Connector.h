#pragma once

#include "TavelTK/TavelTKException.h"
#include "TavelTK/detail/Connection.h"
#include "TavelTK/detail/Route.h"
#include "TavelTK/detail/TlsContext.h"

#include <Poco/Net/IPAddress.h>

#include <memory>
#include <string>
#include <vector>

namespace mrl::detail {

/// A point of time at which a step is given up, and the words for it.
struct Limit {
    TimePoint until;
    std::string text;
};

/// "Basic" credentials as they stand in a header: the scheme and the Base64 of "user:password".
std::string basicCredentials(const std::string& user, const std::string& password);

/// Brings up the connection of one route: name, TCP, the proxy's tunnel, TLS; all of it within one limit.
/// Each failure is its TavelTKException.
class Connector {
public:
    Connector(const Route& route, const SessionOptions& options, Limit limit, const Clock& clock,
              TlsContexts& contexts);

    std::unique_ptr<Connection> connect();

private:
    std::vector<Poco::Net::IPAddress> resolve() const;
    Poco::Net::StreamSocket connectSocket() const;
    void openTunnel(SocketChannel& channel);
    std::string readTunnelReply(SocketChannel& channel);
    IoResult attempt(const Channel& channel, const std::function<Attempt()>& step) const;
    std::unique_ptr<Channel> secure(std::unique_ptr<SocketChannel> socket, TlsContext context);
    [[noreturn]] void fail(TavelTKError error, std::string_view cause,
                           const HBLFileLocation& where = HBLFileLocation::current()) const;

    const Route& m_route;
    const SessionOptions& m_options;
    const Limit m_limit;
    const Clock& m_clock;
    TlsContexts& m_contexts;
    std::string m_hop; ///< who is at the other end, for failures
};

} // namespace mrl::detail
