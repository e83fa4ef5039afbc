#include "session/BareExchange.h"

#include <Poco/Net/HTTPResponse.h>
#include <Poco/Net/SocketAddress.h>
#include <Poco/StreamCopier.h>

#include <cstdlib>
#include <sstream>
#include <string_view>

namespace mrl::bench {

BareExchange::BareExchange(unsigned port, const std::string& request)
    : m_request(request)
    , m_body(request.substr(request.find("\r\n\r\n") + 4))
    , m_session("127.0.0.1", static_cast<Poco::UInt16>(port))
    , m_socket(Poco::Net::SocketAddress("127.0.0.1", static_cast<Poco::UInt16>(port))) {
    std::istringstream head(request);
    m_head.read(head);
    m_session.setKeepAlive(true);
    m_session.setKeepAliveTimeout(Poco::Timespan(60, 0));
    m_socket.setNoDelay(true);
}

bool BareExchange::byClientSession() {
    m_session.sendRequest(m_head).write(m_body.data(), static_cast<std::streamsize>(m_body.size()));
    Poco::Net::HTTPResponse response;
    m_reply.clear();
    Poco::StreamCopier::copyToString(m_session.receiveResponse(response), m_reply);
    return response.getStatus() == Poco::Net::HTTPResponse::HTTP_OK && !m_reply.empty();
}

bool BareExchange::bySocket() {
    m_socket.sendBytes(m_request.data(), static_cast<int>(m_request.size()));
    m_reply.clear();
    for (std::size_t length = std::string::npos; m_reply.size() < length;) {
        char piece[16384];
        const int n = m_socket.receiveBytes(piece, sizeof piece);
        if (n <= 0)
            return false;
        m_reply.append(piece, static_cast<std::size_t>(n));
        static constexpr std::string_view s_name = "Content-Length: ";
        const std::size_t end = m_reply.find("\r\n\r\n");
        const std::size_t at = m_reply.find(s_name);
        if (at < end && end != std::string::npos)
            length = end + 4 + std::strtoul(m_reply.c_str() + at + s_name.size(), nullptr, 10);
    }
    return true;
}

} // namespace mrl::bench
