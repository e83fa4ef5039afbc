#pragma once

#include "HBLCore/HBLError.h"

/// Something was thrown that is neither a throwable of the toolkit nor a standard exception.
class MRL_EXPORT HBLUnknownError : public HBLErrorOf<HBLUnknownError> {
public:
    static constexpr const char* s_name = "HBLUnknownError";
    HBLUnknownError(int errorCode, const char* text)
        : HBLErrorOf(errorCode, text, "unknown error") {}
};
