#include "logipf2/detail/SystemLog.h"

#include <syslog.h>

namespace mrl::detail {

namespace {

constexpr std::size_t LONGEST =
    std::size_t{128} * 1024; // what one message to the system's log may have, with room to spare

int priorityOf(spdlog::level::level_enum severity) {
    switch (severity) {
    case spdlog::level::err: return LOG_ERR;
    case spdlog::level::warn: return LOG_WARNING;
    case spdlog::level::info: return LOG_INFO;
    default: return LOG_DEBUG;
    }
}

} // namespace

LineWriterI::Result SystemLog::write(spdlog::level::level_enum severity, std::string_view line) {
    if (line.size() > LONGEST) {
        return {false, "a record of " + std::to_string(line.size()) + " bytes is more than it takes"};
    }
    if (line.ends_with('\n')) {
        line.remove_suffix(1);
    }
    ::syslog(m_facility | priorityOf(severity), "%.*s", static_cast<int>(line.size()), line.data());
    return {true, {}};
}

} // namespace mrl::detail
