#include "TavelTK/detail/Connection.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <system_error>

namespace mrl::detail {

namespace {

/// Milliseconds to wait, rounded up so that a wait never ends before its time.
int pollTime(TimePoint until, TimePoint now) {
    const auto left = std::chrono::ceil<milliseconds>(until - now).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, INT_MAX));
}

/// Waits until the descriptor is ready for `events`. @return `done`, `timedOut` or `failed`
IoResult await(int descriptor, short events, TimePoint until, const Clock& clock) {
    for (;;) {
        const TimePoint now = clock.now();
        pollfd waiting{descriptor, events, 0};
        const int ready = ::poll(&waiting, 1, pollTime(until, now));
        if (ready > 0)
            return {};
        if (ready < 0 && errno != EINTR)
            return {IoResult::failed, 0, std::generic_category().message(errno), {}};
        if (ready == 0 && clock.now() >= until)
            return {IoResult::timedOut, 0, {}, {}};
    }
}

} // namespace

Connection::Connection(const Poco::Net::StreamSocket& socket)
    : Connection(std::make_unique<SocketChannel>(socket)) {}

Connection::Connection(std::unique_ptr<Channel> channel)
    : m_channel(std::move(channel)) {}

IoResult repeat(const Channel& channel, const std::function<Attempt()>& step, TimePoint until,
                const Clock& clock) {
    for (;;) {
        Attempt tried = step();
        switch (tried.state) {
        case Attempt::moved: return {IoResult::done, tried.count, {}, {}};
        case Attempt::closed: return {IoResult::closed, 0, std::move(tried.cause), tried.error};
        case Attempt::failed: return {IoResult::failed, 0, std::move(tried.cause), tried.error};
        case Attempt::wantsInput:
        case Attempt::wantsRoom: break;
        }
        const short events = tried.state == Attempt::wantsInput ? POLLIN : POLLOUT;
        if (IoResult waited = await(channel.descriptor(), events, until, clock);
            waited.status != IoResult::done)
            return waited;
    }
}

IoResult Connection::send(std::string_view bytes, TimePoint until, const Clock& clock) {
    if (m_isFull)
        if (IoResult waited = await(m_channel->descriptor(), POLLOUT, until, clock);
            waited.status != IoResult::done)
            return waited;
    IoResult sent = repeat(
        *m_channel, [&] { return m_channel->send(bytes); }, until, clock);
    m_isFull = sent.status == IoResult::done && sent.count < bytes.size();
    return sent;
}

IoResult Connection::receive(char* buffer, std::size_t size, TimePoint until, const Clock& clock) {
    if (!m_expectMore && !m_channel->hasPending())
        if (IoResult waited = await(m_channel->descriptor(), POLLIN, until, clock);
            waited.status != IoResult::done)
            return waited;
    IoResult received = repeat(
        *m_channel, [&] { return m_channel->receive(buffer, size); }, until, clock);
    m_expectMore = received.status == IoResult::done && received.count == size;
    return received;
}

} // namespace mrl::detail
