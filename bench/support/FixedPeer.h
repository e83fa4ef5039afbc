#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <sys/types.h>

namespace mrl::bench {

/// An HTTP peer on the loopback device, in a process of its own, so that nothing it does counts as the
/// measured process's. It keeps connections alive, reads each request to its end, and answers by its path.
class FixedPeer {
public:
    /// What one reply carries behind its envelope.
    struct Reply {
        std::string envelope;
        std::size_t attachmentBytes = 0; ///< 0: none, and the reply is plain XML
    };

    /// The attachment's id in an envelope with one.
    static constexpr const char* s_contentId = "attachment";

    /// Starts it. Before the first thread of the process.
    explicit FixedPeer(std::map<std::string, Reply> replies);
    ~FixedPeer();
    FixedPeer(const FixedPeer&) = delete;
    FixedPeer& operator=(const FixedPeer&) = delete;

    unsigned port() const { return m_port; }
    std::string url(const std::string& path) const {
        return "http://127.0.0.1:" + std::to_string(m_port) + path;
    }

private:
    [[noreturn]] void serve(int listener) const;
    void serveConnection(int connection) const;

    std::map<std::string, Reply> m_replies; // by path
    unsigned m_port = 0;
    pid_t m_process = 0;
};

} // namespace mrl::bench
