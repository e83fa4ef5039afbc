#include "logipf2/LogTypedLogger.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NString.h"
#include "logipf2/LOGObject.h"
#include "logipf2/detail/JsonLine.h"
#include "logipf2/detail/LogOutputs.h"
#include "logipf2/detail/LogService.h"

#include <utility>

using mrl::detail::LogService;

LogTypedLogger* LogTypedLogger::getInstance(const I18NString& loggerName, const I18NString& indicationType) {
    return LogService::getInstance().getLogger(loggerName.toUtf8(), indicationType.toUtf8());
}

LogTypedLogger::LogTypedLogger(std::string name)
    : m_name(std::move(name)) {}

LogTypedLogger::~LogTypedLogger() = default;

int LogTypedLogger::isEnabled(int level) const {
    LogService::lookForChange();
    return level >= m_threshold.load(std::memory_order_relaxed) ? 1 : 0;
}

void LogTypedLogger::log(const LOGObject* record) const {
    HBL_ASSERT(record);
    const int level = record->getLevel();
    if (isEnabled(level) == 0) {
        return;
    }
    if (const auto route = LogService::getInstance().getRoute(*this)) {
        route->write(level, mrl::detail::lineOf(m_name, *record));
    }
}
