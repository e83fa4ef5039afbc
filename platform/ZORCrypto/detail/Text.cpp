#include "ZORCrypto/detail/Text.h"

#include "HBLCore/HBLBase64.h"

#include <algorithm>
#include <ctime>

namespace mrl::detail {

namespace {

constexpr std::string_view c_hexDigits = "0123456789abcdef";
constexpr std::string_view c_base64Marks = "+/=";

bool isBase64(char c) noexcept {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           c_base64Marks.find(c) != std::string_view::npos;
}

} // namespace

std::string toHex(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        text += c_hexDigits[static_cast<unsigned char>(byte) >> 4];
        text += c_hexDigits[static_cast<unsigned char>(byte) & 15];
    }
    return text;
}

bool fromHex(std::string_view text, std::string& bytes) {
    bytes.clear();
    if (text.size() % 2 != 0 || text.find_first_not_of(c_hexDigits) != std::string_view::npos)
        return false;
    bytes.reserve(text.size() / 2);
    for (std::size_t i = 0; i < text.size(); i += 2)
        bytes += static_cast<char>(c_hexDigits.find(text[i]) << 4 | c_hexDigits.find(text[i + 1]));
    return true;
}

bool fromBase64(std::string_view text, std::string& bytes) {
    bytes.clear();
    if (text.size() % 4 != 0 || !std::ranges::all_of(text, isBase64))
        return false;
    const std::string terminated(text);
    std::string decoded(text.size() / 4 * 3, '\0');
    std::size_t size = 0;
    if (HBLBase64Decode(terminated.c_str(), decoded.data(), &size) != 0)
        return false;
    decoded.resize(size);
    const std::size_t lastGroup = size == 0 ? 0 : (size - 1) / 3 * 3;
    if (!text.ends_with(HBLBase64Encoded(std::string_view(decoded).substr(lastGroup))))
        return false; // bits to spare that are not zero: one way of writing each value
    bytes = std::move(decoded);
    return true;
}

std::string toBase64Url(std::string_view bytes) {
    std::string text = HBLBase64Encoded(bytes);
    text.resize(std::min(text.find('='), text.size()));
    std::ranges::replace(text, '+', '-');
    std::ranges::replace(text, '/', '_');
    return text;
}

bool fromBase64Url(std::string_view text, std::string& bytes) {
    bytes.clear();
    if (text.find_first_of(c_base64Marks) != std::string_view::npos)
        return false;
    std::string standard(text);
    std::ranges::replace(standard, '-', '+');
    std::ranges::replace(standard, '_', '/');
    standard.resize((standard.size() + 3) / 4 * 4, '=');
    return fromBase64(standard, bytes);
}

std::string toUtcText(std::int64_t secondsSince1970) {
    const std::time_t seconds = secondsSince1970;
    std::tm parts{};
    char text[32] = "";
    if (::gmtime_r(&seconds, &parts) == nullptr || std::strftime(text, sizeof text, "%FT%TZ", &parts) == 0)
        return "?";
    return text;
}

bool fromUtcText(std::string_view text, std::int64_t& secondsSince1970) {
    const std::string terminated(text);
    std::tm parts{};
    const char* const end = ::strptime(terminated.c_str(), "%Y-%m-%dT%H:%M:%SZ", &parts);
    if (end == nullptr || *end != '\0')
        return false;
    secondsSince1970 = ::timegm(&parts);
    return toUtcText(secondsSince1970) == text; // one way of writing each second
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = text.find(separator);
        parts.push_back(text.substr(0, end));
        text.remove_prefix(std::min(parts.back().size() + 1, text.size()));
    }
    return parts;
}

} // namespace mrl::detail
