#pragma once

#include <string>
#include <string_view>

namespace mrl::detail {

/// Without XML's white space at both ends.
std::string_view trimmed(std::string_view text);

/// An optional sign and digits.
bool isWholeNumber(std::string_view text);

/// Begins with http:// or https:// and has a host behind.
bool isHttpAddress(std::string_view text);

} // namespace mrl::detail
