#pragma once

#include "HBLCore/HBLError.h"

/// An allocation failed.
class MRL_EXPORT HBLOutOfMemoryError : public HBLErrorOf<HBLOutOfMemoryError> {
public:
    static constexpr const char* s_name = "HBLOutOfMemoryError";
    HBLOutOfMemoryError(int errorCode, const char* text)
        : HBLErrorOf(errorCode, text, "out of memory") {}
};
