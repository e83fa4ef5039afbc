#pragma once

#include <cstddef>
#include <string>

namespace mrl::detail {

/// The most bytes handed to the system at once; it takes no more than 2 GiB.
inline constexpr std::size_t largestTransfer = std::size_t{1} << 30;

/// Throws the PLQStreamError "The file "path" cannot be <done>: <reason of errno `error`>."
[[noreturn]] void fileFailed(const char* done, const std::string& path, int error, const char* function);

} // namespace mrl::detail
