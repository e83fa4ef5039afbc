#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

/// The level of a logger that writes nothing: above every level of a record.
inline constexpr std::int64_t LOG_OFF = std::numeric_limits<std::int64_t>::max();

/// Where lines go.
struct SinkDefinition {
    enum Kind { eFile, eStandardError, eSystemLog };

    Kind kind = eStandardError;
    std::string path;                                  // file: absolute
    std::int64_t maxSize = std::int64_t{10} * 1048576; // file: bytes from which on it is rotated; 0 for never
    int maxFiles = 5;                                  // file: old ones that are kept
    int facility = 0;                                  // system log

    bool operator==(const SinkDefinition&) const = default;
};

/// What the configuration file says.
struct LogConfiguration {
    struct Logger {
        std::optional<std::int64_t> threshold;         // the least level that is written
        std::optional<std::vector<std::string>> sinks; // by name
    };
    /// What holds for one logger.
    struct Effective {
        std::int64_t threshold;
        std::vector<std::string> sinks;
    };

    std::optional<std::size_t> queueSize; // records; asynchronous only when set
    std::map<std::string, SinkDefinition> sinks;
    std::map<std::string, Logger, std::less<>> loggers; // the one above all is ""

    /// Each property from the nearest name that has it: the logger's own, then those above it.
    Effective effective(std::string_view loggerName) const;
};

/// Reads and checks a configuration file.
/// @throws LogConfigurationError
LogConfiguration readLogConfiguration(const std::string& path);

} // namespace mrl::detail
