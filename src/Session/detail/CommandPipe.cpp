#include "Session/detail/CommandPipe.h"

#include <array>
#include <cerrno>
#include <ctime>

namespace mrl::detail {

namespace {

sigset_t brokenPipe() {
    sigset_t set;
    ::sigemptyset(&set);
    ::sigaddset(&set, SIGPIPE);
    return set;
}

bool isPending() {
    sigset_t pending;
    return ::sigpending(&pending) != 0 || ::sigismember(&pending, SIGPIPE) != 0;
}

/// popen() for a command that ends by a broken pipe, as commands do, however the host's thread is masked. A
/// signal that waits already stays where it is, and the mask with it.
std::FILE* open(const char* command, const char* mode) {
    sigset_t former;
    const sigset_t set = brokenPipe();
    const bool isOpened = !isPending() && ::pthread_sigmask(SIG_UNBLOCK, &set, &former) == 0;
    std::FILE* const file = ::popen(command, mode);
    if (isOpened) {
        const int cause = errno;
        ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
        errno = cause;
    }
    return file;
}

} // namespace

CommandPipe::CommandPipe(const char* command, bool isReading)
    : m_file(open(command, isReading ? "re" : "we")) { // "e": other commands do not inherit the pipe
    if (m_file == nullptr || isReading) {
        return;
    }
    const sigset_t set = brokenPipe();
    // A signal that waits already is blocked, and the host's own.
    m_isBlocked = !isPending() && ::pthread_sigmask(SIG_BLOCK, &set, &m_former) == 0;
}

CommandPipe::~CommandPipe() {
    close();
}

std::string CommandPipe::readAll() {
    std::string all;
    std::array<char, 4096> piece{};
    do {
        std::clearerr(m_file);
        const std::size_t length = std::fread(piece.data(), 1, piece.size(), m_file);
        all.append(piece.data(), length);
    } while (std::feof(m_file) == 0 && (std::ferror(m_file) == 0 || errno == EINTR));
    return all;
}

int CommandPipe::close() {
    if (m_file == nullptr) {
        return -1;
    }
    const int status = ::pclose(m_file);
    m_file = nullptr;
    if (m_isBlocked) {
        const sigset_t set = brokenPipe();
        const timespec noWait{};
        ::sigtimedwait(&set, nullptr, &noWait); // the one that writing has left, if any
        ::pthread_sigmask(SIG_SETMASK, &m_former, nullptr);
        m_isBlocked = false;
    }
    return status;
}

} // namespace mrl::detail
