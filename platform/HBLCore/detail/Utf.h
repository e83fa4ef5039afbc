#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mrl::detail {

// UTF-8 and UTF-16. What is not valid becomes U+FFFD; nothing is refused and nothing is read beyond
// the view. One text holds at most 2^31 - 1 units or bytes: more throws HBLAssertError.

std::u16string utf16FromUtf8(std::string_view bytes);
std::string utf8FromUtf16(std::u16string_view units);

/// Writes the text and a NUL into `size` bytes at `buffer`.
/// @param written the bytes without the NUL.
/// @return false if it does not fit; what stands in the buffer then is undefined.
bool utf8FromUtf16(std::u16string_view units, char* buffer, std::size_t size, std::size_t& written);

} // namespace mrl::detail
