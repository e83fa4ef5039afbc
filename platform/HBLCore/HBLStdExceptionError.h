#pragma once

#include "HBLCore/HBLError.h"

#include <exception>

/// A standard exception met at a boundary of the toolkit; the text is its what().
class MRL_EXPORT HBLStdExceptionError : public HBLErrorOf<HBLStdExceptionError> {
public:
    static constexpr const char* s_name = "HBLStdExceptionError";
    explicit HBLStdExceptionError(const std::exception& cause)
        : HBLErrorOf(0, cause.what(), "standard exception") {}
};
