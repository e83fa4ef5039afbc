#pragma once

#include "HBLCore/HBLError.h"

#include <string>

/// A log configuration cannot be used. The text names file and line, what is wrong, and what to write
/// instead.
class MRL_EXPORT LogConfigurationError : public HBLErrorOf<LogConfigurationError> {
public:
    static constexpr const char* s_name = "LogConfigurationError";
    explicit LogConfigurationError(const std::string& text);

protected:
    const char* getErrorCodePrefix() const override;
};
