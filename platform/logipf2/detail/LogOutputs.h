#pragma once

#include "logipf2/detail/LogConfiguration.h"

#include <atomic>
#include <map>
#include <memory>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <vector>

namespace spdlog {
class async_logger;
namespace details {
class thread_pool;
}
} // namespace spdlog

namespace mrl::detail {

class GuardedSink;

/// The sinks of one configuration, and the queue in front of them when it asks for one. Thread-safe.
class LogOutputs {
public:
    /// A sink that `previous`, which may be null, has with the same definition is taken over as it is.
    LogOutputs(const LogConfiguration& configuration, const LogOutputs* previous);
    ~LogOutputs();
    LogOutputs(const LogOutputs&) = delete;
    LogOutputs& operator=(const LogOutputs&) = delete;

    /// Writes what is queued, and ends the thread behind the queue. Lines that still come are written at
    /// once.
    void close();

    /// Around a fork: no line is under way between the two.
    void beforeFork();
    void afterFork();
    /// In the child instead of afterFork(), where the thread behind the queue does not exist: from now on
    /// lines are written by whoever logs.
    /// @return what must never be destroyed, since it would wait for that thread.
    std::shared_ptr<void> afterForkInChild();

private:
    friend class LogRoute;

    struct Output {
        std::shared_ptr<GuardedSink> sink;
        std::shared_ptr<spdlog::async_logger> queued; // the way through the queue; null without one
    };

    void write(const Output& output, int level, std::string_view line);

    std::map<std::string, Output> m_outputs;
    std::atomic<bool> m_isQueued = false;
    std::shared_mutex m_posting; // shared while a line is put into the queue
    std::shared_ptr<spdlog::details::thread_pool> m_pool;
};

/// The sinks of one logger, which it keeps alive. Thread-safe.
class LogRoute {
public:
    LogRoute(std::shared_ptr<LogOutputs> outputs, const std::vector<std::string>& sinks);

    void write(int level, std::string_view line) const;

private:
    std::shared_ptr<LogOutputs> m_outputs;
    std::vector<const LogOutputs::Output*> m_sinks; // borrowed from m_outputs
};

} // namespace mrl::detail
