#pragma once

#include "TavelTK/detail/Channel.h"
#include "TavelTK/detail/Clock.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mrl::detail {

/// How a step on a connection ended.
struct IoResult {
    enum Status { done, closed, timedOut, failed };
    Status status = done;
    std::size_t count = 0;             ///< bytes moved; with `done` at least one
    std::string cause;                 ///< with `failed`; with `closed` where that end may be a cut
    std::optional<TavelTKError> error; ///< where the channel knows better than its user
};

/// Tries `step` until it has moved on, waiting at the channel's descriptor for what it wants in between.
IoResult repeat(const Channel& channel, const std::function<Attempt()>& step, TimePoint until,
                const Clock& clock);

/// One connection whose steps end at a point of time. One thread at a time.
///
/// It stands on the bare socket, not on an HTTP client class of the network library, since the iostreams of
/// that class report a reset, a silent peer and the regular end of a body all as the end of a stream.
class Connection {
public:
    /// Takes a connected socket.
    explicit Connection(const Poco::Net::StreamSocket& socket);
    explicit Connection(std::unique_ptr<Channel> channel);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Sends as much as goes at once, waiting for room until `until`.
    IoResult send(std::string_view bytes, TimePoint until, const Clock& clock);
    /// Receives what is there, waiting for the first byte until `until`. `closed`: the peer has ended.
    IoResult receive(char* buffer, std::size_t size, TimePoint until, const Clock& clock);

    /// Whether an idle connection is of no more use: the peer has closed it, or sent what nobody asked for.
    bool isStale() { return !m_channel->isSilent(); }

private:
    std::unique_ptr<Channel> m_channel;
    bool m_isFull = false;     // the last send did not take all: wait before the next
    bool m_expectMore = false; // the last receive filled its buffer: try before waiting
};

} // namespace mrl::detail
