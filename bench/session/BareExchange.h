#pragma once

#include <Poco/Net/HTTPClientSession.h>
#include <Poco/Net/HTTPRequest.h>
#include <Poco/Net/StreamSocket.h>

#include <string>

namespace mrl::bench {

/// The same bytes as a call of the toolkit, by Poco alone: nothing is built and nothing is read but HTTP.
class BareExchange {
public:
    /// @param request the whole of it, header and body.
    BareExchange(unsigned port, const std::string& request);

    /// By Poco's HTTP client.
    bool byClientSession();
    /// By Poco's socket, the reply framed by its length.
    bool bySocket();

private:
    const std::string m_request;
    std::string m_body;
    Poco::Net::HTTPClientSession m_session;
    Poco::Net::HTTPRequest m_head;
    Poco::Net::StreamSocket m_socket;
    std::string m_reply;
};

} // namespace mrl::bench
