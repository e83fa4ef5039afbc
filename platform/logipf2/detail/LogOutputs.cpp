#include "logipf2/detail/LogOutputs.h"

#include "logipf2/detail/GuardedSink.h"

#include <spdlog/async_logger.h>
#include <spdlog/details/thread_pool.h>

#include <csignal>
#include <mutex>
#include <utility>

namespace mrl::detail {

namespace {

spdlog::level::level_enum severityOf(int level) {
    if (level >= 50000) {
        return spdlog::level::err;
    }
    if (level >= 40000) {
        return spdlog::level::warn;
    }
    return level >= 20000 ? spdlog::level::info : spdlog::level::debug;
}

/// Signals are for the threads of the host.
void blockSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

LogOutputs::LogOutputs(const LogConfiguration& configuration, const LogOutputs* previous) {
    if (configuration.queueSize) {
        m_pool = std::make_shared<spdlog::details::thread_pool>(*configuration.queueSize, 1, blockSignals);
    }
    for (const auto& [name, definition] : configuration.sinks) {
        Output output;
        if (previous != nullptr) {
            const auto known = previous->m_outputs.find(name);
            if (known != previous->m_outputs.end() && known->second.sink->getDefinition() == definition) {
                output.sink = known->second.sink;
            }
        }
        if (output.sink == nullptr) {
            output.sink = std::make_shared<GuardedSink>(name, definition);
        }
        if (m_pool != nullptr) {
            output.queued = std::make_shared<spdlog::async_logger>(name, output.sink, m_pool,
                                                                   spdlog::async_overflow_policy::block);
        }
        m_outputs.emplace(name, std::move(output));
    }
    m_isQueued = m_pool != nullptr;
}

LogOutputs::~LogOutputs() {
    close();
}

void LogOutputs::close() {
    if (m_isQueued.exchange(false)) {
        const std::unique_lock lock(m_posting);
        m_pool.reset(); // writes the rest of the queue and waits for it
    }
}

void LogOutputs::write(const Output& output, int level, std::string_view line) {
    spdlog::details::log_msg message;
    message.level = severityOf(level);
    message.payload = spdlog::string_view_t(line.data(), line.size());
    if (m_isQueued.load(std::memory_order_acquire)) {
        const std::shared_lock lock(m_posting);
        if (m_pool != nullptr) {
            m_pool->post_log(std::shared_ptr(output.queued), message, spdlog::async_overflow_policy::block);
            return;
        }
    }
    output.sink->log(message);
}

void LogOutputs::beforeFork() {
    for (const auto& [name, output] : m_outputs) {
        output.sink->lock();
    }
}

void LogOutputs::afterFork() {
    for (const auto& [name, output] : m_outputs) {
        output.sink->unlock();
    }
}

std::shared_ptr<void> LogOutputs::afterForkInChild() {
    for (const auto& [name, output] : m_outputs) {
        output.sink->forked();
        output.sink->unlock();
    }
    m_isQueued = false;
    return std::exchange(m_pool, nullptr);
}

LogRoute::LogRoute(std::shared_ptr<LogOutputs> outputs, const std::vector<std::string>& sinks)
    : m_outputs(std::move(outputs)) {
    for (const std::string& sink : sinks) {
        m_sinks.push_back(&m_outputs->m_outputs.at(sink));
    }
}

void LogRoute::write(int level, std::string_view line) const {
    for (const LogOutputs::Output* sink : m_sinks) {
        m_outputs->write(*sink, level, line);
    }
}

} // namespace mrl::detail
