#include "logipf2/LogIPFControl.h"

#include "HBLCore/HBLFmDir.h"
#include "logipf2/detail/LogConfiguration.h"
#include "logipf2/detail/LogService.h"

#include <cstdlib>

void LogIPFControl::start(int /*options*/) {
    mrl::detail::LogService::getInstance().start();
}

void LogIPFControl::stop() {
    mrl::detail::LogService::getInstance().stop();
}

LogIPFControl::Location LogIPFControl::getLocation() {
    const char* const chosen = secure_getenv(s_locationVariable);
    Location location{"../configuration/mrllogging.json", chosen != nullptr && *chosen != '\0'};
    if (location.isFromEnvironment) {
        location.path = chosen;
    }
    HBLFmDir::resolveEffectivePath(location.path);
    return location;
}

void LogIPFControl::checkConfiguration(const std::string& path) {
    mrl::detail::readLogConfiguration(path);
}
