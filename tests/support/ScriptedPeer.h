#pragma once

#include <Poco/Net/ServerSocket.h>
#include <Poco/Net/StreamSocket.h>

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// What the peer does with one request.
struct Answer {
    enum After { keep, close, reset, silence, cut }; // cut: without ending TLS, if there is any
    std::string bytes;                               ///< sent once the request is complete
    After after = keep;                              ///< what becomes of the connection
    bool readsRequest = true;                        ///< false: not a byte of the request is taken
};

/// A peer on the loopback device that gives scripted answers in order, over however many connections,
/// and remembers what it was asked. Out of answers, it closes.
class ScriptedPeer {
public:
    /// @param listener a bound one, if not a plain one on a free port.
    explicit ScriptedPeer(std::vector<Answer> answers = {},
                          const Poco::Net::ServerSocket& listener = loopbackListener());
    /// @param answer makes each answer from the request, one at a time; for peers whose callers may go away.
    explicit ScriptedPeer(std::function<Answer(const std::string& request)> answer,
                          const Poco::Net::ServerSocket& listener = loopbackListener());
    ~ScriptedPeer();

    static Poco::Net::ServerSocket loopbackListener();

    void add(Answer answer);
    std::string url(const std::string& path = "/bus") const;
    std::string authority() const;

    /// All bytes of the n-th request; waits for it, at most two seconds.
    std::string request(std::size_t number) const;
    /// What came of requests that were never completed.
    std::string incomplete() const;
    int connections() const { return m_connections; }
    int open() const { return m_open; }

private:
    void listen();
    void serve(Poco::Net::StreamSocket& socket);
    bool receive(Poco::Net::StreamSocket& socket, std::string& request);
    bool takesRequest() const;
    bool next(const std::string& request, Answer& answer);

    mutable std::mutex m_mutex;
    std::function<Answer(const std::string&)> m_answer; // if set, instead of the list
    std::deque<Answer> m_answers;
    std::vector<std::string> m_requests;
    std::string m_incomplete;
    std::atomic<bool> m_stopped = false;
    std::atomic<int> m_connections = 0;
    std::atomic<int> m_open = 0;
    Poco::Net::ServerSocket m_listener;
    std::vector<std::thread> m_servers;
    std::thread m_thread;
};

/// A reply with a content length.
std::string reply(const std::string& body, const std::string& status = "200 OK",
                  const std::string& contentType = "text/xml; charset=utf-8",
                  const std::string& headers = "");
