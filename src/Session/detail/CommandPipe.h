#pragma once

#include <csignal>
#include <cstdio>
#include <string>

namespace mrl::detail {

/// One command of the shell and the pipe to it or from it. While it lives, its thread gets no SIGPIPE: a
/// command that reads less than it is given must not end the host.
class CommandPipe {
public:
    /// Starts the command. When there can be no process, isOpen() is false and errno tells why.
    CommandPipe(const char* command, bool isReading);
    /// Waits for the command's end, unless close() did.
    ~CommandPipe();
    CommandPipe(const CommandPipe&) = delete;
    CommandPipe& operator=(const CommandPipe&) = delete;

    bool isOpen() const { return m_file != nullptr; }
    std::FILE* getFile() const { return m_file; }

    /// What the command writes, to its end.
    std::string readAll();

    /// Waits for the command's end.
    /// @return its status, as pclose() gives it.
    int close();

private:
    std::FILE* m_file; // owned; null when there is no command
    bool m_isBlocked = false;
    sigset_t m_former{}; // the thread's signal mask before; valid when m_isBlocked
};

} // namespace mrl::detail
