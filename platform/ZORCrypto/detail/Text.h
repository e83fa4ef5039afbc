#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Bytes as characters.
namespace mrl::detail {

std::string toHex(std::string_view bytes);
/// Lower case, two characters a byte. @return false, and `bytes` empty, for anything else.
[[nodiscard]] bool fromHex(std::string_view text, std::string& bytes);

/// Base64 in the standard alphabet, without blanks. @return false, and `bytes` empty, for anything else.
[[nodiscard]] bool fromBase64(std::string_view text, std::string& bytes);

/// The alphabet for URLs ("-" and "_") without padding, which needs no quoting in a cookie.
std::string toBase64Url(std::string_view bytes);
[[nodiscard]] bool fromBase64Url(std::string_view text, std::string& bytes);

/// "2026-11-21T06:00:00Z".
std::string toUtcText(std::int64_t secondsSince1970);
[[nodiscard]] bool fromUtcText(std::string_view text, std::int64_t& secondsSince1970);

/// The parts between the separators; one more than there are separators.
std::vector<std::string_view> split(std::string_view text, char separator);

} // namespace mrl::detail
