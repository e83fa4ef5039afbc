#include "support/FixedPeer.h"

#include "support/UnpackableBytes.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace mrl::bench {

namespace {

constexpr std::size_t s_pieceSize = 128 * 1024;

[[noreturn]] void giveUp(const char* step) {
    std::perror(step);
    std::exit(1);
}

bool sendAll(int connection, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

/// The requests of one connection.
class Requests {
public:
    explicit Requests(int connection)
        : m_connection(connection)
        , m_piece(s_pieceSize) {}

    /// Reads the next one to its end. @return its path; empty when there is none.
    std::string next() {
        m_got.clear();
        std::size_t end = std::string::npos;
        while ((end = m_got.find("\r\n\r\n")) == std::string::npos)
            if (!more())
                return {};
        std::string head = m_got.substr(0, end);
        m_got.erase(0, end + 4);
        const std::size_t path = head.find(' ') + 1;
        const std::string name = head.substr(path, head.find(' ', path) - path);
        std::ranges::transform(head, head.begin(), [](unsigned char c) { return std::tolower(c); });
        return (head.find("transfer-encoding: chunked") != std::string::npos ? skipChunks()
                                                                             : skip(lengthOf(head)))
                   ? name
                   : std::string();
    }

private:
    static std::size_t lengthOf(const std::string& head) {
        static constexpr std::string_view s_name = "content-length:";
        const std::size_t at = head.find(s_name);
        return at == std::string::npos ? 0 : std::strtoul(head.c_str() + at + s_name.size(), nullptr, 10);
    }
    bool more() {
        const ssize_t n = ::recv(m_connection, m_piece.data(), m_piece.size(), 0);
        if (n <= 0)
            return false;
        m_got.append(m_piece.data(), static_cast<std::size_t>(n));
        return true;
    }
    bool skip(std::size_t length) {
        while (m_got.size() < length)
            if (!more())
                return false;
        return true;
    }
    /// The last chunk is known by its bytes; those of unpackableBytes() hold none like it.
    bool skipChunks() {
        static constexpr std::string_view s_end = "\r\n0\r\n\r\n";
        while (!m_got.ends_with(s_end)) {
            m_got.erase(0, m_got.size() - std::min(m_got.size(), s_end.size()));
            if (!more())
                return false;
        }
        return true;
    }

    int m_connection;
    std::vector<char> m_piece;
    std::string m_got;
};

std::string multipartHead(const std::string& envelope) {
    return "--B\r\nContent-Type: text/xml; charset=utf-8\r\nContent-ID: <envelope>\r\n\r\n" + envelope +
           "\r\n--B\r\nContent-Type: application/octet-stream\r\nContent-ID: <" + FixedPeer::s_contentId +
           ">\r\n\r\n";
}

bool answer(int connection, const FixedPeer::Reply& reply) {
    static const std::string s_closing = "\r\n--B--\r\n";
    const bool isPlain = reply.attachmentBytes == 0;
    const std::string body = isPlain ? reply.envelope : multipartHead(reply.envelope);
    const std::size_t length = isPlain ? body.size() : body.size() + reply.attachmentBytes + s_closing.size();
    const std::string type = isPlain
                                 ? "text/xml; charset=utf-8"
                                 : R"(multipart/related; boundary=B; type="text/xml"; start="<envelope>")";
    if (!sendAll(connection, "HTTP/1.1 200 OK\r\nContent-Type: " + type +
                                 "\r\nContent-Length: " + std::to_string(length) + "\r\n\r\n" + body))
        return false;
    for (std::size_t left = reply.attachmentBytes; left != 0;) {
        const std::size_t count = std::min(left, unpackableBytes().size());
        if (!sendAll(connection, std::string_view(unpackableBytes()).substr(0, count)))
            return false;
        left -= count;
    }
    return isPlain || sendAll(connection, s_closing);
}

} // namespace

FixedPeer::FixedPeer(std::map<std::string, Reply> replies)
    : m_replies(std::move(replies)) {
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener, any, length) != 0 || ::listen(listener, 16) != 0 ||
        ::getsockname(listener, any, &length) != 0)
        giveUp("bench: listen");
    m_port = ntohs(address.sin_port);
    m_process = ::fork();
    if (m_process < 0)
        giveUp("bench: fork");
    if (m_process == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        serve(listener);
    }
    ::close(listener);
}

FixedPeer::~FixedPeer() {
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
}

void FixedPeer::serve(int listener) const {
    for (;;) {
        const int connection = ::accept(listener, nullptr, nullptr);
        if (connection >= 0)
            std::thread([this, connection] { serveConnection(connection); }).detach();
    }
}

void FixedPeer::serveConnection(int connection) const {
    const int on = 1;
    ::setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    Requests requests(connection);
    for (std::string path; !(path = requests.next()).empty();) {
        const auto found = m_replies.find(path);
        if (found == m_replies.end() || !answer(connection, found->second))
            break;
    }
    ::close(connection);
}

} // namespace mrl::bench
