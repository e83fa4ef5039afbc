#pragma once

#include <string>
#include <string_view>

namespace mrl::detail {

/// Writes all bytes.
/// @param mayBePipe guards the host against the signal of a reader that has gone, for some system calls.
/// @return 0, or the errno of the failure; `written` counts the bytes that went out before it.
int writeWhole(int descriptor, std::string_view bytes, bool mayBePipe, std::size_t& written) noexcept;

/// The system's text for an errno.
std::string failureText(int error);

/// Tells the operator, on standard error, what logging itself cannot write. Never fails.
void tellOperator(const std::string& text) noexcept;

} // namespace mrl::detail
