#include "logipf2/LogConfigurationError.h"

LogConfigurationError::LogConfigurationError(const std::string& text)
    : HBLErrorOf(1, text.c_str(), "unusable log configuration") {}

const char* LogConfigurationError::getErrorCodePrefix() const {
    return "HBL-LOG";
}
