#pragma once

#include "support/TemporaryDirectory.h"

#include "logipf2/LogIPFControl.h"
#include "logipf2/detail/LogClock.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace mrl::test {

/// Logging into a directory of its own, at a time that stands still until a test moves it. One at a time.
class LogHarness {
public:
    /// Starts logging with a configuration; its relative paths are seen from directory().
    explicit LogHarness(const std::string& configuration) {
        LogIPFControl::stop(); // a session of an earlier test may have started it
        setenv(LogIPFControl::s_locationVariable, path("mrllogging.json").c_str(), 1);
        detail::replaceLogClock(&CLOCK);
        if (!configuration.empty()) {
            replace(configuration);
        }
        LogIPFControl::start(0);
    }
    ~LogHarness() {
        LogIPFControl::stop();
        detail::replaceLogClock(nullptr);
        unsetenv(LogIPFControl::s_locationVariable);
    }
    LogHarness(const LogHarness&) = delete;
    LogHarness& operator=(const LogHarness&) = delete;

    /// Puts another configuration in place, in one step, as editors do.
    void replace(const std::string& configuration) {
        std::ofstream(path("new")) << configuration;
        std::filesystem::rename(path("new"), path("mrllogging.json"));
    }
    static void pass(int milliseconds) { s_monotonic += milliseconds; }

    std::string path(const std::string& name) const { return m_directory.path() + "/" + name; }
    std::vector<std::string> lines(const std::string& name = "log") const {
        std::ifstream in(path(name));
        std::vector<std::string> found;
        for (std::string line; std::getline(in, line);) {
            found.push_back(line);
        }
        return found;
    }

    /// What every line of this thread begins with.
    static std::string head(const std::string& logger, const std::string& type, int level) {
        return R"({"time":"2026-11-21T06:05:04.123456Z","logger":")" + logger + R"(","type":")" + type +
               R"(","level":)" + std::to_string(level) + R"(,"process":)" + std::to_string(getpid()) +
               R"(,"thread":)" + std::to_string(gettid()) + ",";
    }

private:
    static inline std::atomic<std::int64_t> s_monotonic = 1'000'000;
    static constexpr detail::LogClock CLOCK = {[] { return std::int64_t{1795241104123456}; },
                                               [] { return s_monotonic.load(); }};

    TemporaryDirectory m_directory;
};

} // namespace mrl::test
