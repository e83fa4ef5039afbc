#include "TavelTK/detail/Wire.h"

#include "TavelTK/detail/ConnectionPool.h"
#include "TavelTK/detail/Failure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/random.h>
#include <system_error>

namespace mrl::detail {

namespace {

std::string randomToken() {
    static constexpr std::string_view s_digits = "0123456789abcdef";
    // Straight from the system: a std::random_device asks the processor what it is each time it is made.
    std::array<unsigned char, 16> bytes;
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t got = ::getrandom(bytes.data() + done, bytes.size() - done, 0);
        if (got < 0 && errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "no random bytes from the system");
        done += got < 0 ? 0 : static_cast<std::size_t>(got);
    }
    std::string token;
    token.reserve(2 * bytes.size());
    for (const unsigned byte : bytes) {
        token += s_digits[byte >> 4];
        token += s_digits[byte & 15];
    }
    return token;
}

} // namespace

Surroundings Surroundings::real() {
    return {ConnectionPool::shared(), Clock::steady(), &randomToken, TlsContexts::shared()};
}

Wire::Wire(Endpoint endpoint, int timeLimit, const Surroundings& surroundings)
    : m_endpoint(std::move(endpoint))
    , m_peer(m_endpoint.authority())
    , m_timeLimit(timeLimit)
    , m_surroundings(surroundings) {}

void Wire::start() {
    m_end = m_surroundings.clock.now() + std::chrono::seconds(m_timeLimit);
    m_route.emplace(m_endpoint, m_options);
}

void Wire::hurry(milliseconds left) {
    m_end = std::min(m_end, m_surroundings.clock.now() + left);
}

TimePoint Wire::endOf(std::int64_t step) const {
    return step > 0 ? std::min(m_end, m_surroundings.clock.now() + milliseconds(step)) : m_end;
}

std::string Wire::whyAt(TimePoint end, std::int64_t step, const char* property) const {
    if (end < m_end)
        return std::to_string(step) + " ms have passed (" + property + ")";
    return "the exchange's time limit of " + std::to_string(m_timeLimit) + " s has passed";
}

void Wire::fail(TavelTKError error, TavelTKPhase phase, std::string_view cause,
                const HBLFileLocation& where) {
    closeConnection();
    detail::fail(error, phase, m_peer, cause, where);
}

void Wire::broke(std::string_view cause) {
    fail(TavelTKError::connectionBroke, TavelTKPhase::readReply, cause);
}

std::string Wire::credentials(std::string_view header, const std::string& user, const std::string& password) {
    std::string line = std::string(header) + ": ";
    m_secrets.push_back(basicCredentials(user, password));
    return line.append(m_secrets.back()).append("\r\n");
}

void Wire::connect() {
    m_connection = m_surroundings.pool.take(m_route->poolKey, m_surroundings.clock.now());
    if (m_connection)
        return;
    const TimePoint end = endOf(m_options.connectTimeLimit);
    Connector connector(*m_route, m_options,
                        {end, whyAt(end, m_options.connectTimeLimit, "connect-time-limit")},
                        m_surroundings.clock, m_surroundings.tls);
    m_connection = connector.connect();
}

void Wire::echoSent(std::string_view bytes) {
    if (!m_secrets.empty()) { // the head of the request, always in one piece
        const std::size_t end = std::min(bytes.find("\r\n\r\n"), bytes.size());
        std::string head(bytes.substr(0, end));
        for (const std::string& secret : m_secrets)
            if (const std::size_t at = head.find(secret); at != std::string::npos)
                head.replace(at, secret.size(), "***");
        m_secrets.clear();
        m_echo->write(head);
        bytes.remove_prefix(end);
    }
    m_echo->write(bytes);
}

// A peer that refuses a request often says why before it closes.
void Wire::failSending(const IoResult& sent) {
    if (sent.error)
        fail(*sent.error, TavelTKPhase::send, sent.cause);
    char answer[256];
    const IoResult late = m_connection->receive(
        answer, sizeof answer, m_surroundings.clock.now() + milliseconds(100), m_surroundings.clock);
    if (late.error)
        fail(*late.error, TavelTKPhase::send, late.cause);
    std::string cause = sent.cause.empty() ? "the peer closed it" : sent.cause;
    const std::string_view words(answer, late.count);
    if (words.starts_with("HTTP/"))
        cause += "; it answered '" + printable(words.substr(0, words.find_first_of("\r\n"))) + "'";
    fail(TavelTKError::sendFailed, TavelTKPhase::send, cause);
}

void Wire::send(std::string_view bytes) {
    if (!m_connection)
        connect();
    if (m_echo)
        echoSent(bytes);
    while (!bytes.empty()) {
        const TimePoint end = endOf(m_options.sendTimeLimit);
        const IoResult sent = m_connection->send(bytes, end, m_surroundings.clock);
        if (sent.status == IoResult::timedOut)
            fail(TavelTKError::sendTimedOut, TavelTKPhase::send,
                 whyAt(end, m_options.sendTimeLimit, "send-time-limit"));
        if (sent.status != IoResult::done)
            failSending(sent);
        bytes.remove_prefix(sent.count);
    }
}

std::size_t Wire::receive(char* buffer, std::size_t size) {
    HBL_ASSERT(m_connection);
    const TimePoint end = endOf(m_options.receiveTimeLimit);
    const IoResult received = m_connection->receive(buffer, size, end, m_surroundings.clock);
    if (received.status == IoResult::timedOut)
        fail(TavelTKError::receiveTimedOut, receivingPhase(),
             whyAt(end, m_options.receiveTimeLimit, "receive-time-limit"));
    return take(received, buffer);
}

std::optional<std::size_t> Wire::receive(char* buffer, std::size_t size, milliseconds within) {
    HBL_ASSERT(m_connection);
    const TimePoint until = std::min(m_end, m_surroundings.clock.now() + within);
    const IoResult received = m_connection->receive(buffer, size, until, m_surroundings.clock);
    if (received.status == IoResult::timedOut)
        return {};
    return take(received, buffer);
}

std::size_t Wire::take(const IoResult& received, const char* buffer) {
    if (received.error)
        fail(*received.error, receivingPhase(), received.cause);
    if (received.status != IoResult::done && m_received == 0)
        fail(TavelTKError::closedBeforeReply, TavelTKPhase::awaitReply,
             received.cause.empty() ? "the peer closed it" : received.cause);
    if (received.status == IoResult::failed)
        broke(received.cause);
    if (received.status == IoResult::closed)
        m_cut = received.cause;
    m_received += received.count;
    if (m_echo && received.count != 0)
        m_echo->write({buffer, received.count});
    return received.count;
}

void Wire::keepConnection() {
    if (m_connection) // a failure has closed it
        m_surroundings.pool.give(m_route->poolKey, std::move(m_connection), m_surroundings.clock.now());
}

} // namespace mrl::detail
