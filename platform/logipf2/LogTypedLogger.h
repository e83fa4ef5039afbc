#pragma once

#include "HBLCore/MRLExport.h"

#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

class I18NString;
class LOGObject;

namespace mrl::detail {
class LogRoute;
class LogService;
} // namespace mrl::detail

/// A named logger for one kind of record, shared by the whole process and never ended. Its level and its
/// sinks come from the configuration, by its name, or by the nearest name above it that says something:
/// "Audit.RTUsage.MRL" stands above "Audit.RTUsage.MRL.Request". Thread-safe.
class MRL_EXPORT LogTypedLogger {
public:
    /// The logger of this name for this kind of record; made on first use. Never null.
    static LogTypedLogger* getInstance(const I18NString& loggerName, const I18NString& indicationType);

    /// Whether records of `level` are written: those at or above the level of the logger. Cheap enough to
    /// ask always. Looks, once a second at most, whether the configuration has changed.
    /// @return 1 or 0.
    int isEnabled(int level) const;

    /// Writes the record as one line, when its level is enabled, before it returns unless the configuration
    /// asks for something else. A sink that fails never fails the caller; see docs/logging.md.
    /// @param record borrowed, not null.
    void log(const LOGObject* record) const;

    const std::string& getName() const { return m_name; }

    LogTypedLogger(const LogTypedLogger&) = delete;
    LogTypedLogger& operator=(const LogTypedLogger&) = delete;
    ~LogTypedLogger();

private:
    friend class mrl::detail::LogService;

    static constexpr std::int64_t s_off = std::numeric_limits<std::int64_t>::max();

    explicit LogTypedLogger(std::string name);

    const std::string m_name;
    std::atomic<std::int64_t> m_threshold = s_off;        // the least level that is written
    std::shared_ptr<const mrl::detail::LogRoute> m_route; // under the service's lock; null while off
};
