#pragma once

#include "HBLCore/HBLFailure.h"
#include "TavelTK/TavelTKException.h"

#include <string>
#include <string_view>

namespace mrl::detail {

/// Throws the TavelTKException of a failure.
/// @param peer "host:port", empty before the endpoint is known.
[[noreturn]] void fail(TavelTKError error, TavelTKPhase phase, std::string_view peer, std::string_view cause,
                       const HBLFileLocation& where = HBLFileLocation::current());

/// Text from outside made fit for a message: bytes other than printable ASCII become '.', what exceeds
/// `limit` is cut off and marked with "...".
std::string printable(std::string_view text, std::size_t limit = 200);

} // namespace mrl::detail
