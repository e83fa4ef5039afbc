#include "traffic/ChildProcess.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace mrl::tool {

namespace {

std::atomic<pid_t> s_child{0};

extern "C" void passOn(int signal) {
    if (const pid_t child = s_child.load(); child > 0)
        ::kill(child, signal);
}

/// Leaves the interrupts of the terminal to the child, which gets them too, and passes on what this process
/// alone is told to end by: what was recorded until then is still reported.
class SignalsForChild {
public:
    SignalsForChild() {
        struct sigaction ignore {};
        ignore.sa_handler = SIG_IGN;
        struct sigaction pass {};
        pass.sa_handler = &passOn;
        ::sigaction(SIGINT, &ignore, &m_interrupt);
        ::sigaction(SIGQUIT, &ignore, &m_quit);
        ::sigaction(SIGTERM, &pass, &m_end);
    }
    ~SignalsForChild() {
        ::sigaction(SIGINT, &m_interrupt, nullptr);
        ::sigaction(SIGQUIT, &m_quit, nullptr);
        ::sigaction(SIGTERM, &m_end, nullptr);
        s_child = 0;
    }
    SignalsForChild(const SignalsForChild&) = delete;
    SignalsForChild& operator=(const SignalsForChild&) = delete;

private:
    struct sigaction m_interrupt {};
    struct sigaction m_quit {};
    struct sigaction m_end {};
};

/// The defaults of the signals that this process ignores meanwhile, and of the one that a library blocks.
class Attributes {
public:
    Attributes() {
        ::posix_spawnattr_init(&m_attributes);
        sigset_t defaults;
        ::sigemptyset(&defaults);
        ::sigaddset(&defaults, SIGINT);
        ::sigaddset(&defaults, SIGQUIT);
        ::posix_spawnattr_setsigdefault(&m_attributes, &defaults);
        sigset_t blocked;
        ::pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
        ::sigdelset(&blocked, SIGPIPE);
        ::posix_spawnattr_setsigmask(&m_attributes, &blocked);
        ::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~Attributes() { ::posix_spawnattr_destroy(&m_attributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    const posix_spawnattr_t* get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

std::vector<std::string> environmentWith(const std::vector<std::pair<std::string, std::string>>& variables) {
    std::vector<std::string> environment;
    for (char** entry = ::environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        if (std::ranges::none_of(variables, [&](const auto& set) {
                return text.starts_with(set.first) && text[set.first.size()] == '=';
            }))
            environment.push_back(text);
    }
    for (const auto& [name, value] : variables)
        if (!value.empty())
            environment.push_back(std::string(name).append("=").append(value));
    return environment;
}

/// What the system takes: pointers into `texts`, and a null.
std::vector<char*> pointersInto(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

int runChild(const std::vector<std::string>& command,
             const std::vector<std::pair<std::string, std::string>>& variables) {
    std::vector<std::string> arguments = command;
    std::vector<std::string> environment = environmentWith(variables);
    const SignalsForChild signals;
    const Attributes attributes;
    sigset_t before;
    sigset_t end; // waits until there is a child to pass it on to
    ::sigemptyset(&end);
    ::sigaddset(&end, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &end, &before);
    pid_t child = 0;
    const int error = ::posix_spawnp(&child, command.front().c_str(), nullptr, attributes.get(),
                                     pointersInto(arguments).data(), pointersInto(environment).data());
    s_child = error == 0 ? child : 0;
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (error != 0) {
        std::cerr << "mrl: '" << command.front()
                  << "' cannot be run: " << std::generic_category().message(error) << '\n';
        return error == ENOENT ? e_NotFound : e_NotRun;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace mrl::tool
