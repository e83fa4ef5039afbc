#pragma once

#include "TavelTK/detail/Connection.h"

#include <cstddef>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <sys/types.h>

namespace mrl::detail {

/// Idle kept-alive connections by "host:port". Thread-safe; bounded in number and in time.
class ConnectionPool {
public:
    static constexpr std::size_t maxIdle = 64;
    static constexpr std::size_t maxIdlePerPeer = 16;
    static constexpr std::chrono::seconds maxIdleTime{30};

    ConnectionPool();

    /// The pool of the process. It is never destroyed, so that hosts may call the bus until their very end.
    static ConnectionPool& shared();

    /// The connection to `peer` that was used last, if it is still alive; null if there is none.
    std::unique_ptr<Connection> take(const std::string& peer, TimePoint now);

    /// Keeps a connection on which nothing is under way; what exceeds the bounds is closed, oldest first.
    void give(const std::string& peer, std::unique_ptr<Connection> connection, TimePoint now);

    std::size_t size() const;

private:
    struct Idle {
        std::string peer;
        std::unique_ptr<Connection> connection;
        TimePoint since;
    };
    using IdleList = std::list<Idle>; // oldest first

    IdleList takeExpired(TimePoint now);

    mutable std::mutex m_mutex;
    IdleList m_idle;
    pid_t m_process; // whose connections these are
};

} // namespace mrl::detail
