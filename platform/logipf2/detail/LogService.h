#pragma once

#include "logipf2/LogIPFControl.h"
#include "logipf2/detail/LogClock.h"
#include "logipf2/detail/LogConfiguration.h"

#include <atomic>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

class LogTypedLogger;

namespace mrl::detail {

class LogOutputs;
class LogRoute;

/// The loggers of the process and the configuration in force. Lives until the process ends, so that threads
/// may log to the last; usable in a child process. Thread-safe.
class LogService {
public:
    static LogService& getInstance();

    void start();
    void stop();

    LogTypedLogger* getLogger(const std::string& name, const std::string& indicationType);

    /// Where a logger writes; null while it does not.
    std::shared_ptr<const LogRoute> getRoute(const LogTypedLogger& logger);

    /// Once a second, when started: reads the configuration again if it has changed.
    static void lookForChange() {
        const std::int64_t next = s_nextLook.load(std::memory_order_relaxed);
        if (next != NEVER && logClock().monotonicMilliseconds() >= next) {
            getInstance().look(next);
        }
    }

private:
    static constexpr std::int64_t NEVER = std::numeric_limits<std::int64_t>::max();

    /// What tells one state of a file from another.
    struct Stamp {
        bool exists = false;
        std::uint64_t device = 0;
        std::uint64_t node = 0;
        std::int64_t size = 0;
        std::int64_t seconds = 0; // of the last change
        std::int64_t nanoseconds = 0;

        static Stamp of(const std::string& path);
        bool operator==(const Stamp&) const = default;
    };

    LogService();
    ~LogService() = delete;

    void look(std::int64_t due);
    void read();
    void apply(LogConfiguration configuration);
    void assign(LogTypedLogger& logger);

    void beforeFork();
    void afterFork();
    void afterForkInChild();

    static constinit inline std::atomic<std::int64_t> s_nextLook = NEVER;

    std::mutex m_mutex; // all but the loggers' routes; may be held while files are read and written
    std::map<std::pair<std::string, std::string>, std::unique_ptr<LogTypedLogger>> m_loggers;
    std::atomic<bool> m_isStarted = false;
    LogIPFControl::Location m_location;
    Stamp m_stamp;
    std::string m_trouble; // why the configuration was not taken; empty when it was
    LogConfiguration m_configuration;
    std::shared_ptr<LogOutputs> m_outputs; // null while nothing is configured

    std::mutex m_routeMutex; // LogTypedLogger::m_route of all; taken behind m_mutex, held for a moment
    std::vector<std::shared_ptr<void>> m_abandoned; // of the parent process; never destroyed
};

} // namespace mrl::detail
