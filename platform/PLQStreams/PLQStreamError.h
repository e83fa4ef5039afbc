#pragma once

#include "HBLCore/HBLError.h"

#include <string>

/// What kind of failure a PLQStreamError is: its getErrorCode().
enum ePLQStreamError : int {
    ePLQStreamFile = 1, ///< the system refused a file; the message names path and reason
    ePLQStreamData = 2, ///< the data is not in its format; the message names the offset
};

/// A byte stream cannot go on, for a reason outside the program.
class MRL_EXPORT PLQStreamError : public HBLErrorOf<PLQStreamError> {
public:
    static constexpr const char* s_name = "PLQStreamError";
    PLQStreamError(ePLQStreamError kind, const std::string& text);

protected:
    const char* getErrorCodePrefix() const override;
};
