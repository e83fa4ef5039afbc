#pragma once

#include "HBLCore/HBLError.h"

/// An operation was called on an object that is not in a state for it.
class MRL_EXPORT HBLIllegalStateError : public HBLErrorOf<HBLIllegalStateError> {
public:
    static constexpr const char* s_name = "HBLIllegalStateError";
    HBLIllegalStateError(int errorCode, const char* text)
        : HBLErrorOf(errorCode, text, "illegal state") {}
};
