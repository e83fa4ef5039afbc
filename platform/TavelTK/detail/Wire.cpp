#include "TavelTK/detail/Wire.h"

#include "TavelTK/detail/ConnectionPool.h"
#include "TavelTK/detail/Failure.h"

#include <Poco/Net/DNS.h>
#include <Poco/Net/NetException.h>

#include <algorithm>
#include <random>

namespace mrl::detail {

namespace {

std::string randomToken() {
    static constexpr std::string_view s_digits = "0123456789abcdef";
    std::random_device source;
    std::string token;
    while (token.size() < 32) {
        auto bits = source();
        for (int digit = 0; digit < 8; ++digit, bits >>= 4)
            token += s_digits[bits & 15];
    }
    return token;
}

} // namespace

Surroundings Surroundings::real() {
    return {ConnectionPool::shared(), Clock::steady(), &randomToken};
}

Wire::Wire(Endpoint endpoint, int timeLimit, const Surroundings& surroundings)
    : m_endpoint(std::move(endpoint))
    , m_peer(m_endpoint.authority())
    , m_timeLimit(timeLimit)
    , m_surroundings(surroundings) {
    start();
}

void Wire::start() {
    m_end = m_surroundings.clock.now() + std::chrono::seconds(m_timeLimit);
}

void Wire::hurry(milliseconds left) {
    m_end = std::min(m_end, m_surroundings.clock.now() + left);
}

Wire::Limit Wire::limit(std::int64_t step, const char* property) const {
    const TimePoint stepEnd = m_surroundings.clock.now() + milliseconds(step);
    if (step > 0 && stepEnd < m_end)
        return {stepEnd, std::to_string(step) + " ms have passed (" + property + ")"};
    return {m_end, "the exchange's time limit of " + std::to_string(m_timeLimit) + " s has passed"};
}

void Wire::fail(TavelTKError error, TavelTKPhase phase, std::string_view cause,
                const HBLFileLocation& where) {
    closeConnection();
    detail::fail(error, phase, m_peer, cause, where);
}

void Wire::broke(std::string_view cause) {
    fail(TavelTKError::connectionBroke, TavelTKPhase::readReply, cause);
}

void Wire::connect() {
    m_connection = m_surroundings.pool.take(m_peer, m_surroundings.clock.now());
    if (!m_connection)
        m_connection = openConnection();
}

std::unique_ptr<Connection> Wire::openConnection() {
    std::vector<Poco::Net::IPAddress> addresses;
    try {
        if (Poco::Net::IPAddress address; Poco::Net::IPAddress::tryParse(m_endpoint.host, address))
            addresses.push_back(address);
        else
            addresses = Poco::Net::DNS::hostByName(m_endpoint.host).addresses();
    } catch (const Poco::Exception& e) {
        fail(TavelTKError::hostUnknown, TavelTKPhase::connect, e.displayText());
    }
    if (addresses.empty())
        fail(TavelTKError::hostUnknown, TavelTKPhase::connect, "the name has no address");

    const Limit limit = this->limit(m_options.connectTimeLimit, "connect-time-limit");
    TavelTKError error = TavelTKError::connectFailed;
    std::string cause;
    for (const Poco::Net::IPAddress& address : addresses) {
        const auto left =
            std::chrono::ceil<std::chrono::microseconds>(limit.until - m_surroundings.clock.now());
        if (left.count() <= 0)
            fail(TavelTKError::connectTimedOut, TavelTKPhase::connect, limit.text);
        try {
            Poco::Net::StreamSocket socket;
            socket.connect({address, m_endpoint.port}, Poco::Timespan(left.count()));
            return std::make_unique<Connection>(socket);
        } catch (const Poco::TimeoutException&) {
            fail(TavelTKError::connectTimedOut, TavelTKPhase::connect, limit.text);
        } catch (const Poco::Net::ConnectionRefusedException& e) {
            error = TavelTKError::connectionRefused;
            cause = e.displayText();
        } catch (const Poco::Exception& e) {
            error = TavelTKError::connectFailed;
            cause = e.displayText();
        }
    }
    fail(error, TavelTKPhase::connect, cause);
}

void Wire::send(std::string_view bytes) {
    if (!m_connection)
        connect();
    if (m_echo)
        m_echo->write(bytes);
    while (!bytes.empty()) {
        const Limit limit = this->limit(m_options.sendTimeLimit, "send-time-limit");
        const IoResult sent = m_connection->send(bytes, limit.until, m_surroundings.clock);
        if (sent.status == IoResult::timedOut)
            fail(TavelTKError::sendTimedOut, TavelTKPhase::send, limit.text);
        if (sent.status != IoResult::done)
            fail(TavelTKError::sendFailed, TavelTKPhase::send, sent.cause);
        bytes.remove_prefix(sent.count);
    }
}

std::size_t Wire::receive(char* buffer, std::size_t size) {
    HBL_ASSERT(m_connection);
    const Limit limit = this->limit(m_options.receiveTimeLimit, "receive-time-limit");
    const IoResult received = m_connection->receive(buffer, size, limit.until, m_surroundings.clock);
    if (received.status == IoResult::timedOut)
        fail(TavelTKError::receiveTimedOut, receivingPhase(), limit.text);
    if (received.status != IoResult::done && m_received == 0)
        fail(TavelTKError::closedBeforeReply, TavelTKPhase::awaitReply,
             received.cause.empty() ? "the peer closed it" : received.cause);
    if (received.status == IoResult::failed)
        broke(received.cause);
    m_received += received.count;
    if (m_echo && received.count != 0)
        m_echo->write({buffer, received.count});
    return received.count;
}

void Wire::keepConnection() {
    if (m_connection) // a failure has closed it
        m_surroundings.pool.give(m_peer, std::move(m_connection), m_surroundings.clock.now());
}

} // namespace mrl::detail
