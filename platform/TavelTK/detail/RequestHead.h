#pragma once

#include "TavelTK/detail/Wire.h"

#include <string>
#include <string_view>

namespace mrl::detail {

/// Request line and header lines of one request, without the length and the empty line at their end.
/// @param sessionConfig the session configuration document; empty: none travels.
/// @param requestId tells this exchange from every other.
std::string requestHead(Wire& wire, std::string_view soapAction, std::string_view contentType,
                        std::string_view sessionConfig, std::string_view requestId);

} // namespace mrl::detail
