#pragma once

#include "TavelTK/TavelTKError.h"

#include <Poco/Net/StreamSocket.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrl::detail {

/// What one try of a step on a channel came to.
struct Attempt {
    enum State { moved, wantsInput, wantsRoom, closed, failed };
    State state = moved;
    std::size_t count = 0;             ///< bytes, with `moved`
    std::string cause;                 ///< with `failed`; with `closed` where the end is not a clean one
    std::optional<TavelTKError> error; ///< where the channel knows better than its user
};

/// A two-way stream of bytes that never blocks: plain TCP, or TLS over it.
class Channel {
public:
    virtual ~Channel() = default;
    virtual int descriptor() const = 0;
    virtual Attempt send(std::string_view bytes) = 0;
    virtual Attempt receive(char* buffer, std::size_t size) = 0;
    /// Whether bytes may be there that the descriptor does not tell of.
    virtual bool hasPending() const = 0;
    /// Whether nothing has come on an idle channel, not even its end.
    virtual bool isSilent() = 0;
};

/// A connected TCP socket. Closed with its object.
class SocketChannel : public Channel {
public:
    explicit SocketChannel(const Poco::Net::StreamSocket& socket);

    int descriptor() const override;
    Attempt send(std::string_view bytes) override;
    Attempt receive(char* buffer, std::size_t size) override;
    bool hasPending() const override { return false; }
    bool isSilent() override;

private:
    Poco::Net::StreamSocket m_socket;
};

} // namespace mrl::detail
