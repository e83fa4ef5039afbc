#include "TavelTK/detail/Channel.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>

namespace mrl::detail {

namespace {

Attempt outcome(ssize_t count, Attempt::State ifBlocked) {
    if (count >= 0)
        return {Attempt::moved, static_cast<std::size_t>(count), {}, {}};
    if (errno == EAGAIN || errno == EWOULDBLOCK)
        return {ifBlocked, 0, {}, {}};
    return {Attempt::failed, 0, std::generic_category().message(errno), {}};
}

} // namespace

SocketChannel::SocketChannel(const Poco::Net::StreamSocket& socket)
    : m_socket(socket) {
    m_socket.setBlocking(false);
    m_socket.setNoDelay(true);
    ::fcntl(m_socket.impl()->sockfd(), F_SETFD,
            FD_CLOEXEC); // programs that the host starts have no part in it
}

int SocketChannel::descriptor() const {
    return m_socket.impl()->sockfd();
}

Attempt SocketChannel::send(std::string_view bytes) {
    for (;;) {
        // No signal for a broken pipe: the process and its handlers belong to the host.
        const ssize_t sent = ::send(descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent >= 0 || errno != EINTR)
            return outcome(sent, Attempt::wantsRoom);
    }
}

Attempt SocketChannel::receive(char* buffer, std::size_t size) {
    for (;;) {
        const ssize_t received = ::recv(descriptor(), buffer, size, 0);
        if (received == 0)
            return {Attempt::closed, 0, {}, {}};
        if (received > 0 || errno != EINTR)
            return outcome(received, Attempt::wantsInput);
    }
}

bool SocketChannel::isSilent() {
    pollfd watched{descriptor(), POLLIN, 0};
    return ::poll(&watched, 1, 0) == 0;
}

} // namespace mrl::detail
