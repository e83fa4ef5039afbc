#pragma once

#include "HBLCore/HBLError.h"

/// A requirement was not met: a failed HBL_ASSERT. The text is the macro call as written.
class MRL_EXPORT HBLAssertError : public HBLErrorOf<HBLAssertError> {
public:
    static constexpr const char* s_name = "HBLAssertError";
    HBLAssertError(int errorCode, const char* text)
        : HBLErrorOf(errorCode, text, "assertion failed") {}
};
