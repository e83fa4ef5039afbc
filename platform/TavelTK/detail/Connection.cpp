#include "TavelTK/detail/Connection.h"

#include <Poco/Net/NetException.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>

namespace mrl::detail {

namespace {

std::string systemText(int error) {
    return std::generic_category().message(error);
}

/// Milliseconds to wait, rounded up so that a wait never ends before its time.
int pollTime(TimePoint until, TimePoint now) {
    const auto left = std::chrono::ceil<milliseconds>(until - now).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, INT_MAX));
}

} // namespace

Connection::Connection(const Poco::Net::StreamSocket& socket)
    : m_socket(socket) {
    m_socket.setBlocking(false);
    m_socket.setNoDelay(true);
}

IoResult Connection::await(short events, TimePoint until, const Clock& clock) {
    for (;;) {
        const TimePoint now = clock.now();
        pollfd waiting{m_socket.impl()->sockfd(), events, 0};
        const int ready = ::poll(&waiting, 1, pollTime(until, now));
        if (ready > 0)
            return {};
        if (ready < 0 && errno != EINTR)
            return {IoResult::failed, 0, systemText(errno)};
        if (ready == 0 && clock.now() >= until)
            return {IoResult::timedOut, 0, {}};
    }
}

int Connection::sendSome(std::string_view bytes) {
    try {
        // No signal for a broken pipe: the process and its handlers belong to the host.
        return m_socket.sendBytes(
            bytes.data(), static_cast<int>(std::min<std::size_t>(bytes.size(), INT_MAX)), MSG_NOSIGNAL);
    } catch (const Poco::IOException& e) {
        if (e.code() == EAGAIN || e.code() == EWOULDBLOCK)
            return 0;
        throw;
    }
}

IoResult Connection::send(std::string_view bytes, TimePoint until, const Clock& clock) {
    try {
        for (;;) {
            if (m_isFull)
                if (IoResult waited = await(POLLOUT, until, clock); waited.status != IoResult::done)
                    return waited;
            const int sent = sendSome(bytes);
            m_isFull = sent < 0 || static_cast<std::size_t>(sent) < bytes.size();
            if (sent > 0)
                return {IoResult::done, static_cast<std::size_t>(sent), {}};
        }
    } catch (const Poco::Exception& e) {
        return {IoResult::failed, 0, e.displayText()};
    }
}

IoResult Connection::receive(char* buffer, std::size_t size, TimePoint until, const Clock& clock) {
    try {
        const int length = static_cast<int>(std::min<std::size_t>(size, INT_MAX));
        for (;;) {
            if (!m_expectMore)
                if (IoResult waited = await(POLLIN, until, clock); waited.status != IoResult::done)
                    return waited;
            m_expectMore = false;
            const int received = m_socket.receiveBytes(buffer, length);
            if (received == 0)
                return {IoResult::closed, 0, {}};
            if (received > 0) {
                m_expectMore = received == length;
                return {IoResult::done, static_cast<std::size_t>(received), {}};
            }
        }
    } catch (const Poco::Exception& e) {
        return {IoResult::failed, 0, e.displayText()};
    }
}

bool Connection::isStale() {
    pollfd watched{m_socket.impl()->sockfd(), POLLIN, 0};
    return ::poll(&watched, 1, 0) != 0;
}

} // namespace mrl::detail
