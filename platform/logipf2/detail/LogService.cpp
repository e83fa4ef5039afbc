#include "logipf2/detail/LogService.h"

#include "HBLCore/HBLThrowable.h"
#include "logipf2/LogTypedLogger.h"
#include "logipf2/detail/Descriptor.h"
#include "logipf2/detail/LogOutputs.h"

#include <exception>
#include <pthread.h>
#include <sys/stat.h>

namespace mrl::detail {

namespace {

constexpr std::int64_t LOOK_MILLISECONDS = 1000;

} // namespace

LogService& LogService::getInstance() {
    static LogService* const service = new LogService();
    return *service;
}

LogService::LogService() {
    pthread_atfork([] { getInstance().beforeFork(); }, [] { getInstance().afterFork(); },
                   [] { getInstance().afterForkInChild(); });
}

LogService::Stamp LogService::Stamp::of(const std::string& path) {
    struct stat found = {};
    if (::stat(path.c_str(), &found) != 0) {
        return {};
    }
    return {true, found.st_dev, found.st_ino, found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}

void LogService::start() {
    if (m_isStarted.load(std::memory_order_acquire)) {
        return;
    }
    const std::lock_guard lock(m_mutex);
    if (m_isStarted) {
        return;
    }
    m_location = LogIPFControl::getLocation();
    m_stamp = Stamp::of(m_location.path);
    if (m_stamp.exists || m_location.isFromEnvironment) {
        read();
    }
    s_nextLook = logClock().monotonicMilliseconds() + LOOK_MILLISECONDS;
    m_isStarted.store(true, std::memory_order_release);
}

void LogService::stop() {
    const std::lock_guard lock(m_mutex);
    if (!m_isStarted) {
        return;
    }
    s_nextLook = NEVER;
    m_trouble.clear();
    apply({});
    m_outputs.reset();
    m_isStarted = false;
}

LogTypedLogger* LogService::getLogger(const std::string& name, const std::string& indicationType) {
    const std::lock_guard lock(m_mutex);
    std::unique_ptr<LogTypedLogger>& logger = m_loggers[{name, indicationType}];
    if (logger == nullptr) {
        logger.reset(new LogTypedLogger(name));
        assign(*logger);
    }
    return logger.get();
}

std::shared_ptr<const LogRoute> LogService::getRoute(const LogTypedLogger& logger) {
    const std::lock_guard lock(m_routeMutex);
    return logger.m_route;
}

void LogService::look(std::int64_t due) {
    // Of all who see that it is due, one looks.
    if (!s_nextLook.compare_exchange_strong(due, logClock().monotonicMilliseconds() + LOOK_MILLISECONDS)) {
        return;
    }
    const std::lock_guard lock(m_mutex);
    if (!m_isStarted) {
        return;
    }
    const Stamp stamp = Stamp::of(m_location.path);
    if (stamp != m_stamp || !m_trouble.empty()) { // what failed may have been the disk
        m_stamp = stamp;
        read();
    }
}

void LogService::read() {
    std::string trouble;
    try {
        apply(readLogConfiguration(m_location.path));
        m_trouble.clear();
        return;
    } catch (HBLThrowable& e) {
        trouble = e.getMessage();
    } catch (const std::exception& e) { // no memory, no thread for the queue
        trouble = m_location.path + ": " + e.what();
    }
    if (trouble != m_trouble) {
        tellOperator(trouble +
                     (m_outputs == nullptr ? " (nothing is logged)" : " (logging goes on as before)"));
        m_trouble = trouble;
    }
}

void LogService::apply(LogConfiguration configuration) {
    const std::shared_ptr<LogOutputs> before = m_outputs;
    m_outputs = std::make_shared<LogOutputs>(configuration, before.get());
    m_configuration = std::move(configuration);
    for (const auto& [key, logger] : m_loggers) {
        assign(*logger);
    }
    if (before != nullptr) {
        before->close();
    }
}

void LogService::assign(LogTypedLogger& logger) {
    const LogConfiguration::Effective effective = m_configuration.effective(logger.getName());
    std::shared_ptr<const LogRoute> route;
    if (effective.threshold != LOG_OFF) {
        route = std::make_shared<const LogRoute>(m_outputs, effective.sinks);
    }
    {
        const std::lock_guard lock(m_routeMutex);
        logger.m_route.swap(route);
    }
    logger.m_threshold.store(effective.threshold, std::memory_order_relaxed);
}

void LogService::beforeFork() {
    m_mutex.lock();
    m_routeMutex.lock();
    if (m_outputs != nullptr) {
        m_outputs->beforeFork();
    }
}

void LogService::afterFork() {
    if (m_outputs != nullptr) {
        m_outputs->afterFork();
    }
    m_routeMutex.unlock();
    m_mutex.unlock();
}

void LogService::afterForkInChild() {
    if (m_outputs != nullptr) {
        if (std::shared_ptr<void> abandoned = m_outputs->afterForkInChild()) {
            m_abandoned.push_back(std::move(abandoned));
        }
    }
    m_routeMutex.unlock();
    m_mutex.unlock();
}

} // namespace mrl::detail
