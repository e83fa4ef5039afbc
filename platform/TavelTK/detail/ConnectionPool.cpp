#include "TavelTK/detail/ConnectionPool.h"

#include <algorithm>
#include <unistd.h>

namespace mrl::detail {

ConnectionPool::ConnectionPool()
    : m_process(::getpid()) {}

ConnectionPool& ConnectionPool::shared() {
    static auto* const s_pool = new ConnectionPool;
    return *s_pool;
}

ConnectionPool::IdleList ConnectionPool::takeExpired(TimePoint now) {
    IdleList expired;
    // After a fork the connections still belong to the parent: the child closes its copies and uses none.
    if (const pid_t process = ::getpid(); process != m_process) {
        m_process = process;
        expired.splice(expired.end(), m_idle);
        return expired;
    }
    const auto fresh =
        std::ranges::find_if(m_idle, [&](const Idle& i) { return now - i.since < maxIdleTime; });
    expired.splice(expired.end(), m_idle, m_idle.begin(), fresh);
    return expired;
}

std::unique_ptr<Connection> ConnectionPool::take(const std::string& peer, TimePoint now) {
    for (;;) {
        IdleList closing; // sockets are closed and probed outside the lock
        IdleList taken;
        {
            const std::lock_guard lock(m_mutex);
            closing = takeExpired(now);
            const auto last = std::find_if(m_idle.rbegin(), m_idle.rend(),
                                           [&](const Idle& idle) { return idle.peer == peer; });
            if (last == m_idle.rend())
                return nullptr;
            taken.splice(taken.end(), m_idle, std::prev(last.base()));
        }
        if (!taken.front().connection->isStale())
            return std::move(taken.front().connection);
    }
}

void ConnectionPool::give(const std::string& peer, std::unique_ptr<Connection> connection, TimePoint now) {
    IdleList given;
    given.push_back({peer, std::move(connection), now});
    IdleList closing;
    const std::lock_guard lock(m_mutex);
    closing = takeExpired(now);
    m_idle.splice(m_idle.end(), given);
    const auto isPeer = [&](const Idle& idle) { return idle.peer == peer; };
    if (std::ranges::count_if(m_idle, isPeer) > static_cast<std::ptrdiff_t>(maxIdlePerPeer))
        closing.splice(closing.end(), m_idle, std::ranges::find_if(m_idle, isPeer));
    if (m_idle.size() > maxIdle)
        closing.splice(closing.end(), m_idle, m_idle.begin());
}

std::size_t ConnectionPool::size() const {
    const std::lock_guard lock(m_mutex);
    return m_idle.size();
}

} // namespace mrl::detail
