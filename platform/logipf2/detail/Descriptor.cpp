#include "logipf2/detail/Descriptor.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <optional>
#include <unistd.h>

namespace mrl::detail {

namespace {

/// Keeps the signal of a broken pipe away from the host while this thread writes.
class BrokenPipeGuard {
public:
    BrokenPipeGuard() noexcept {
        sigset_t pending;
        sigpending(&pending);
        m_wasPending = sigismember(&pending, SIGPIPE) == 1;
        sigset_t blocked;
        sigemptyset(&blocked);
        sigaddset(&blocked, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &blocked, &m_before);
    }
    ~BrokenPipeGuard() {
        if (m_raised && !m_wasPending) {
            sigset_t own;
            sigemptyset(&own);
            sigaddset(&own, SIGPIPE);
            const timespec atOnce{};
            sigtimedwait(&own, nullptr, &atOnce);
        }
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    BrokenPipeGuard(const BrokenPipeGuard&) = delete;
    BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;

    void raised() noexcept { m_raised = true; }

private:
    sigset_t m_before;
    bool m_wasPending;
    bool m_raised = false;
};

} // namespace

int writeWhole(int descriptor, std::string_view bytes, bool mayBePipe, std::size_t& written) noexcept {
    std::optional<BrokenPipeGuard> guard;
    if (mayBePipe) {
        guard.emplace();
    }
    written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
        if (count >= 0) {
            written += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            const int error = errno;
            if (error == EPIPE && guard) {
                guard->raised();
            }
            return error;
        }
    }
    return 0;
}

std::string failureText(int error) {
    const char* const text = strerrordesc_np(error); // unlike strerror it touches no shared buffer
    return text == nullptr ? "error " + std::to_string(error) : text;
}

void tellOperator(const std::string& text) noexcept {
    try {
        const std::string line = "mrl logging: " + text + "\n";
        std::size_t written = 0;
        writeWhole(STDERR_FILENO, line, true, written); // nobody is left to tell when this fails
    } catch (...) {                                     // no memory for the text: the host goes on
    }
}

} // namespace mrl::detail
