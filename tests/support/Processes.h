#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace mrl::test {

/// A child process that runs a step, and has to end soon.
class Child {
public:
    /// @param step gives the exit code.
    template <class Step>
    explicit Child(const Step& step)
        : m_id(::fork()) {
        if (m_id == 0) {
            ::alarm(60);
            ::_exit(step());
        }
    }
    /// Waits for its end. @return the exit code, -1 when a signal ended it
    int end() const {
        int status = -1;
        ::waitpid(m_id, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_id;
};

} // namespace mrl::test
