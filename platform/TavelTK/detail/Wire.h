#pragma once

#include "HBLCore/HBLFailure.h"
#include "TavelTK/TavelTKException.h"
#include "TavelTK/detail/Connection.h"
#include "TavelTK/detail/Connector.h"
#include "TavelTK/detail/EchoFile.h"
#include "TavelTK/detail/Endpoint.h"
#include "TavelTK/detail/Route.h"
#include "TavelTK/detail/SessionOptions.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

class ConnectionPool;

/// What a session needs from outside; tests put their own in place of each.
struct Surroundings {
    ConnectionPool& pool;
    const Clock& clock;
    std::string (*newToken)(); ///< a text that never occurs twice, for boundaries and ids
    TlsContexts& tls = TlsContexts::shared();

    /// The pool of the process, the machine's clock, 128 random bits in hexadecimal.
    static Surroundings real();
};

/// One exchange's hold on the network: it connects when the first byte is sent, keeps every time limit,
/// copies the traffic to the echo file, and turns each failure into its TavelTKException. After a failure
/// the connection is closed.
class Wire {
public:
    /// @param timeLimit seconds from start() to the last byte.
    Wire(Endpoint endpoint, int timeLimit, const Surroundings& surroundings);

    const Endpoint& endpoint() const { return m_endpoint; }
    const std::string& peer() const { return m_peer; }
    SessionOptions& options() { return m_options; }
    std::string newToken() const { return m_surroundings.newToken(); }
    void echoTo(std::unique_ptr<EchoFile> file) { m_echo = std::move(file); }

    /// The exchange's time runs from here, and its properties stay as they are.
    void start();
    /// The way to the endpoint, from start() on.
    const Route& route() const { return *m_route; }
    /// From here on no step takes longer: for reads whose result is not worth the whole limit.
    void hurry(milliseconds left);

    /// A header line that names who asks. What was made here never stands in an echo file.
    std::string credentials(std::string_view header, const std::string& user, const std::string& password);

    /// Sends all of it, connecting first if need be.
    void send(std::string_view bytes);

    /// At least one byte, or 0 when the peer has ended the connection after at least one byte of the reply.
    std::size_t receive(char* buffer, std::size_t size);
    /// The same, giving up after `within`. @return nothing when it did
    std::optional<std::size_t> receive(char* buffer, std::size_t size, milliseconds within);
    /// Why the end of the connection may be a cut and no end; empty if it is a clean one.
    const std::string& cut() const { return m_cut; }

    /// The peer has ended the connection where more of the reply was due.
    [[noreturn]] void broke(std::string_view cause);

    [[noreturn]] void fail(TavelTKError error, TavelTKPhase phase, std::string_view cause,
                           const HBLFileLocation& where = HBLFileLocation::current());

    /// The exchange is over and the peer keeps the connection: so does the pool.
    void keepConnection();
    void closeConnection() noexcept { m_connection.reset(); }

private:
    void connect();
    std::size_t take(const IoResult& received, const char* buffer);
    [[noreturn]] void failSending(const IoResult& sent);
    void echoSent(std::string_view bytes);
    /// When a step that may take `step` milliseconds (0: as long as the exchange) is given up.
    TimePoint endOf(std::int64_t step) const;
    /// The words for having come there. @param property the one that limits the step
    std::string whyAt(TimePoint end, std::int64_t step, const char* property) const;
    TavelTKPhase receivingPhase() const {
        return m_received ? TavelTKPhase::readReply : TavelTKPhase::awaitReply;
    }

    Endpoint m_endpoint;
    std::string m_peer;
    int m_timeLimit;
    Surroundings m_surroundings;
    SessionOptions m_options;
    std::optional<Route> m_route;
    TimePoint m_end;
    std::unique_ptr<EchoFile> m_echo;
    std::vector<std::string> m_secrets; // that must not be echoed
    std::unique_ptr<Connection> m_connection;
    std::uint64_t m_received = 0;
    std::string m_cut;
};

} // namespace mrl::detail
