#pragma once

#include "Common/MRLException.h"

#include <cstdint>

namespace mrl::detail {

/// Throws the failure `number` of the message catalogue with its parameters.
template <class... Parameters>
[[noreturn]] void throwFailure(const HBLFileLocation& where, const char* function, std::uint32_t number,
                               const Parameters&... parameters) {
    MRLHBLMessage message(number);
    ((message << HBLMessageParm(parameters)), ...);
    MRLException failure(0);
    failure << message;
    failure.hurl(where, function, "HBL_THROW");
}

} // namespace mrl::detail
