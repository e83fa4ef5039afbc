#include "support/ScriptedPeer.h"

#include <Poco/Exception.h>
#include <Poco/Net/SocketAddress.h>

#include <chrono>
#include <memory>
#include <sys/socket.h>

namespace {

const Poco::Timespan s_slice(0, 2000);

/// The whole of a request: its head, and its body by length or in chunks.
bool isComplete(const std::string& request) {
    const std::size_t head = request.find("\r\n\r\n");
    if (head == std::string::npos)
        return false;
    if (request.find("Transfer-Encoding: chunked\r\n") < head)
        return request.ends_with("\r\n0\r\n\r\n");
    const std::size_t length = request.find("Content-Length: ");
    return length < head && request.size() == head + 4 + std::stoul(request.substr(length + 16));
}

} // namespace

std::string reply(const std::string& body, const std::string& status, const std::string& contentType,
                  const std::string& headers) {
    return "HTTP/1.1 " + status + "\r\nContent-Type: " + contentType + "\r\n" + headers +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

Poco::Net::ServerSocket ScriptedPeer::loopbackListener() {
    return Poco::Net::ServerSocket(Poco::Net::SocketAddress("127.0.0.1", 0));
}

ScriptedPeer::ScriptedPeer(std::vector<Answer> answers, const Poco::Net::ServerSocket& listener)
    : m_answers(answers.begin(), answers.end())
    , m_listener(listener)
    , m_thread([this] { listen(); }) {}

ScriptedPeer::ScriptedPeer(std::function<Answer(const std::string&)> answer,
                           const Poco::Net::ServerSocket& listener)
    : m_answer(std::move(answer))
    , m_listener(listener)
    , m_thread([this] { listen(); }) {}

ScriptedPeer::~ScriptedPeer() {
    m_stopped = true;
    m_thread.join();
    for (std::thread& server : m_servers)
        server.join();
}

void ScriptedPeer::add(Answer answer) {
    const std::lock_guard lock(m_mutex);
    m_answers.push_back(std::move(answer));
}

std::string ScriptedPeer::authority() const {
    return "127.0.0.1:" + std::to_string(m_listener.address().port());
}

std::string ScriptedPeer::url(const std::string& path) const {
    return "http://" + authority() + path;
}

std::string ScriptedPeer::request(std::size_t number) const {
    for (int slice = 0; slice < 1000; ++slice) {
        {
            const std::lock_guard lock(m_mutex);
            if (number < m_requests.size())
                return m_requests[number];
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return "(no request number " + std::to_string(number) + ")";
}

std::string ScriptedPeer::incomplete() const {
    while (m_open != 0)
        std::this_thread::yield();
    const std::lock_guard lock(m_mutex);
    return m_incomplete;
}

void ScriptedPeer::listen() {
    while (!m_stopped)
        if (m_listener.poll(s_slice, Poco::Net::Socket::SELECT_READ)) {
            ++m_open;
            ++m_connections;
            auto accepted = std::make_unique<Poco::Net::StreamSocket>(m_listener.acceptConnection());
            m_servers.emplace_back([this, socket = std::move(accepted)]() mutable {
                try {
                    serve(*socket);
                } catch (const Poco::Exception&) {
                    // The client under test has gone away.
                }
                socket.reset();
                --m_open;
            });
        }
}

bool ScriptedPeer::next(const std::string& request, Answer& answer) {
    const std::lock_guard lock(m_mutex);
    if (m_answer) {
        answer = m_answer(request);
        return true;
    }
    if (m_answers.empty())
        return false;
    answer = m_answers.front();
    m_answers.pop_front();
    return true;
}

bool ScriptedPeer::takesRequest() const {
    const std::lock_guard lock(m_mutex);
    return m_answers.empty() || m_answers.front().readsRequest;
}

bool ScriptedPeer::receive(Poco::Net::StreamSocket& socket, std::string& request) {
    char buffer[65536];
    while (!isComplete(request)) {
        if (m_stopped)
            return false;
        if (!socket.poll(s_slice, Poco::Net::Socket::SELECT_READ))
            continue;
        const int count = socket.receiveBytes(buffer, sizeof buffer);
        if (count == 0)
            return false;
        request.append(buffer, static_cast<std::size_t>(count));
    }
    return true;
}

void ScriptedPeer::serve(Poco::Net::StreamSocket& socket) {
    for (;;) {
        std::string request;
        if (takesRequest()) {
            const bool isWhole = receive(socket, request);
            const std::lock_guard lock(m_mutex);
            if (!isWhole) {
                m_incomplete += request;
                return;
            }
            m_requests.push_back(request);
        } else {
            while (!m_stopped && !socket.poll(s_slice, Poco::Net::Socket::SELECT_READ)) {
            }
        }
        Answer answer;
        if (!next(request, answer))
            return;
        if (!answer.bytes.empty())
            socket.sendBytes(answer.bytes.data(), static_cast<int>(answer.bytes.size()), MSG_NOSIGNAL);
        if (answer.after == Answer::silence)
            while (!m_stopped)
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
        if (answer.after == Answer::cut)
            ::shutdown(socket.impl()->sockfd(), SHUT_RDWR);
        if (answer.after == Answer::reset)
            socket.setLinger(true, 0);
        if (answer.after != Answer::keep)
            return socket.close();
    }
}
