// Text: the operations of MRLHelper that escape, resolve, copy and convert.

#include "Common/HBLI18NBuffer.h"
#include "Session/MRLHelper.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NString.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>

namespace {

constexpr std::string_view HEX_DIGITS = "0123456789abcdef";
constexpr unsigned char MARK = 32; // the first byte that is no control character

/// "%00" to "%ff".
constexpr auto URL_ESCAPES = [] {
    std::array<std::array<char, 3>, 256> escapes{};
    for (std::size_t i = 0; i < escapes.size(); ++i) {
        escapes[i] = {'%', HEX_DIGITS[i >> 4U], HEX_DIGITS[i & 15U]};
    }
    return escapes;
}();

/// What stands for itself in a URL.
constexpr auto URL_SAFE = [] {
    std::array<bool, 128> safe{};
    for (const char c :
         std::string_view("()*-.0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz")) {
        safe[static_cast<unsigned char>(c)] = true;
    }
    return safe;
}();

std::string_view urlEscape(std::uint32_t byte) {
    return {URL_ESCAPES[byte].data(), URL_ESCAPES[byte].size()};
}

/// Short text made for one byte.
struct Escape {
    std::array<char, 8> text{};
    std::size_t size = 0;

    void set(std::string_view whole) { size = whole.copy(text.data(), text.size()); }
    void set(std::string_view before, unsigned number, int base, std::string_view behind) {
        char* const begin = text.data();
        char* end = std::copy(before.begin(), before.end(), begin);
        end = std::to_chars(end, begin + text.size(), number, base).ptr;
        end = std::copy(behind.begin(), behind.end(), end);
        size = static_cast<std::size_t>(end - begin);
    }
    std::string_view view() const { return {text.data(), size}; }
};

/// The escape of a byte in XML; empty for one that stays.
std::string_view escapeXml(unsigned char byte, Escape& made) {
    switch (byte) {
    case '\t':
    case '\n':
    case '\r': return {};
    case '"': return "&quot;";
    case '&': return "&amp;";
    case '\'': return "&#39;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    default: break;
    }
    if (byte >= MARK) {
        return {};
    }
    made.set("&#", byte, 10, ";");
    return made.view();
}

/// The escape of a byte in a string of a script; empty for one that stays. A "<" or ">" that stayed could
/// end the script around the string.
std::string_view escapeJavaScript(unsigned char byte, Escape& made) {
    switch (byte) {
    case '\b': return "\\b";
    case '\t': return "\\t";
    case '\n': return "\\n";
    case '\v': return "\\v";
    case '\f': return "\\f";
    case '\r': return "\\r";
    case '"': return "\\\"";
    case '\'': return "\\'";
    case '<': return "\\<";
    case '>': return "\\>";
    case '\\': return "\\\\";
    default: break;
    }
    if (byte >= MARK) {
        return {};
    }
    made.set("\\x", byte, 16, "");
    return made.view();
}

/// The bytes that count: none for null, else at most `size`, up to the first NUL.
std::string_view bounded(const char* data, std::size_t size) {
    return data == nullptr ? std::string_view() : std::string_view(data, strnlen(data, size));
}

/// Appends `text`, with an escape for each byte that has one.
template <class EscapeOf>
void appendEscaped(std::string_view text, HBLByteBuffer& out, EscapeOf escapeOf) {
    Escape made;
    std::size_t plain = 0; // where what stays begins
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view escape = escapeOf(static_cast<unsigned char>(text[i]), made);
        if (!escape.empty()) {
            out.append(text.substr(plain, i - plain));
            out.append(escape);
            plain = i + 1;
        }
    }
    out.append(text.substr(plain));
}

struct Entity {
    std::uint32_t value;
    std::size_t length; // in the text
};

std::optional<Entity> namedEntity(std::string_view text) {
    static constexpr std::pair<std::string_view, char> NAMES[] = {
        {"&amp;", '&'}, {"&apos;", '\''}, {"&gt;", '>'}, {"&lt;", '<'}, {"&quot;", '"'}};
    for (const auto& [name, character] : NAMES) {
        if (text.starts_with(name)) {
            return Entity{static_cast<std::uint32_t>(character), name.size()};
        }
    }
    return std::nullopt;
}

std::optional<std::uint32_t> digit(char c, std::uint32_t base) {
    const char lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
    const std::size_t value = HEX_DIGITS.find(lower);
    return value < base ? std::optional(static_cast<std::uint32_t>(value)) : std::nullopt;
}

/// A number may have no digits, which makes it 0, and loses what 32 bits cannot hold.
std::optional<Entity> numericEntity(std::string_view text) {
    if (text.size() < 4 || !text.starts_with("&#")) {
        return std::nullopt;
    }
    const bool isHexadecimal = text[2] == 'x';
    const std::uint32_t base = isHexadecimal ? 16 : 10;
    std::uint32_t value = 0;
    for (std::size_t i = isHexadecimal ? 3 : 2; i < text.size(); ++i) {
        if (text[i] == ';') {
            return Entity{value, i + 1};
        }
        const std::optional<std::uint32_t> next = digit(text[i], base);
        if (!next) {
            return std::nullopt;
        }
        value = value * base + *next;
    }
    return std::nullopt;
}

/// `text` with the escapes of what file names cannot hold.
std::string escapedForFile(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (std::string_view("\"*/:<>?\\|").find(c) != std::string_view::npos) {
            escaped += urlEscape(static_cast<unsigned char>(c));
        } else {
            escaped += c;
        }
    }
    return escaped;
}

/// With eight lower-case digits.
std::string hexadecimal(std::uint32_t value) {
    std::string digits;
    for (unsigned shift = 32; shift != 0; shift -= 4) {
        digits += HEX_DIGITS[(value >> (shift - 4)) & 15U];
    }
    return digits;
}

std::size_t unitsOf(const unsigned short* text) {
    const unsigned short* end = text;
    while (*end != 0) {
        ++end;
    }
    return static_cast<std::size_t>(end - text);
}

template <class Number>
int writeWide(Number value, unsigned short* buffer) {
    std::array<char, 12> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const std::size_t units = static_cast<std::size_t>(end - digits.data());
    std::copy(digits.data(), end, buffer);
    buffer[units] = 0;
    return HBLDowncastSize::int32((units + 1) * sizeof(unsigned short));
}

/// A conversion that cannot overflow.
int truncated(float value) {
    using Limits = std::numeric_limits<int>;
    if (value >= 2147483648.0F) {
        return Limits::max();
    }
    if (value < -2147483648.0F) {
        return Limits::min();
    }
    return value == value ? static_cast<int>(value) : 0;
}

} // namespace

void MRLHelper::xmlEncode(const char* data, std::size_t size, HBLByteBuffer& out) {
    appendEscaped(bounded(data, size), out, escapeXml);
}

void MRLHelper::xmlEncodeForExcel(const char* data, std::size_t size, HBLByteBuffer& out) {
    Escape made;
    bool inSpan = false;
    bool afterSpace = true;
    const std::string_view text = bounded(data, size);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != ' ') {
            if (inSpan) {
                out.append("</span>");
                inSpan = false;
            }
            afterSpace = false;
            const std::string_view escape = escapeXml(static_cast<unsigned char>(text[i]), made);
            out.append(escape.empty() ? text.substr(i, 1) : escape);
            continue;
        }
        const bool isLast = size - i == 1; // by size: a NUL before leaves a span open
        if (!afterSpace && !isLast) {
            out.append(' ');
        } else {
            if (!inSpan) {
                out.append("<span style='mso-spacerun:yes'>");
                inSpan = true;
            }
            out.append("&nbsp;");
            if (isLast) {
                out.append("</span>");
            }
        }
        afterSpace = true;
    }
}

void MRLHelper::javaScriptEncode(const char* data, std::size_t size, HBLByteBuffer& out) {
    appendEscaped(bounded(data, size), out, escapeJavaScript);
}

void MRLHelper::xmlDecode(const char* data, std::size_t size, HBLByteBuffer& out) {
    std::string_view text = bounded(data, size);
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find('&'), text.size());
        out.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) {
            return;
        }
        std::optional<Entity> entity = namedEntity(text);
        if (!entity) {
            entity = numericEntity(text);
        }
        if (!entity) {
            out.append(text.front());
            text.remove_prefix(1);
            continue;
        }
        if (entity->value > 256) {
            out << static_cast<int>((entity->value >> 8U) & 0xFFU);
        }
        out.append(static_cast<char>(entity->value & 0xFFU));
        text.remove_prefix(entity->length);
    }
}

void MRLHelper::urlEncode(const void* input, std::size_t byteCount, HBLByteBuffer& out) {
    if (byteCount == 0) {
        return out.reset();
    }
    HBL_ASSERT(input);
    const std::size_t units = byteCount / 2;
    out.reset();
    out.reserve(units * 3);
    for (std::size_t i = 0; i < units; ++i) {
        std::uint16_t unit = 0;
        std::memcpy(&unit, static_cast<const char*>(input) + i * 2, sizeof(unit));
        if (unit == ' ') {
            out.append('+');
        } else if (unit < 0x80 && URL_SAFE[unit]) {
            out.append(static_cast<char>(unit));
        } else if (unit < 0x80) {
            out.append(urlEscape(unit));
        } else if (unit < 0x800) {
            out.append(urlEscape(0xC0U | unit >> 6U));
            out.append(urlEscape(0x80U | (unit & 0x3FU)));
        } else {
            out.append(urlEscape(0xE0U | unit >> 12U));
            out.append(urlEscape(0x80U | (unit >> 6U & 0x3FU)));
            out.append(urlEscape(0x80U | (unit & 0x3FU)));
        }
    }
}

void MRLHelper::urlEncode(const I18NString& text, HBLByteBuffer& out) {
    const std::int64_t size = HBLDowncastSize::int64(text.size()) - 2;
    HBL_ASSERT(size >= 0);
    urlEncode(text.getExternalBuffer(), static_cast<std::size_t>(size), out);
}

void MRLHelper::fileNameEncode(std::string& name) {
    if (!name.empty()) {
        name = escapedForFile(name);
        shortenFileName(name);
    }
}

void MRLHelper::encodeObjectPathShort(std::string& path) {
    constexpr std::size_t limit = 32;
    constexpr std::size_t kept = 23;
    std::string encoded = escapedForFile(path);
    if (encoded.size() >= limit) {
        encoded.replace(kept, std::string::npos, "_" + hexadecimal(getCrc(path.c_str())));
    }
    path = std::move(encoded);
}

int MRLHelper::wstrcmp(const unsigned short* s1, const unsigned short* s2) {
    HBL_ASSERT(s1);
    HBL_ASSERT(s2);
    const std::size_t units1 = unitsOf(s1);
    const std::size_t units2 = unitsOf(s2);
    // The count of units as a number of bytes: callers rely on no more than the first half.
    if (const int order = std::memcmp(s1, s2, std::min(units1, units2)); order != 0) {
        return order;
    }
    return units1 < units2 ? -1 : static_cast<int>(units1 > units2);
}

int MRLHelper::strSafeCopy(char* pszDest, std::size_t size, const char* source) {
    HBL_ASSERT(pszDest);
    if (source == nullptr || size == 0) {
        *pszDest = '\0';
        return 0;
    }
    const std::size_t length = strnlen(source, size);
    const bool isWhole = length < size;
    const std::size_t copied = isWhole ? length : size - 1;
    std::memcpy(pszDest, source, copied);
    pszDest[copied] = '\0';
    return isWhole ? 1 : 0;
}

int MRLHelper::strSafeCat(char* dest, std::size_t size, const char* source) {
    if (dest == nullptr) {
        return 0;
    }
    const std::size_t length = strnlen(dest, size);
    return length < size ? strSafeCopy(dest + length, size - length, source) : 0;
}

int MRLHelper::convertNumToWideChar(int value, unsigned short* buffer) {
    HBL_ASSERT(buffer);
    return writeWide(value, buffer);
}

int MRLHelper::convertNumToWideChar(unsigned int value, unsigned short* buffer) {
    HBL_ASSERT(buffer);
    return writeWide(value, buffer);
}

int MRLHelper::convertToPixels(float value, int unit, float resolution, float fontSize, int& pixels) {
    constexpr float defaultFontSize = 16.078125F;
    switch (unit) {
    case 27: pixels = truncated(value / 72.0F * resolution); return 1;
    case 28: pixels = truncated(value / 6.0F * resolution); return 1;
    case 29: pixels = truncated(value * resolution); return 1;
    case 30: pixels = truncated(value / 2.54F * resolution); return 1;
    case 31: pixels = truncated(value / 25.4F * resolution); return 1;
    case 32:
    case 35: pixels = truncated(value * (fontSize > 0.0F ? fontSize : defaultFontSize)); return 1;
    case 33: pixels = truncated(value); return 1;
    default: return 0;
    }
}

int MRLHelper::getLanguage(const I18NString& locale, HBLI18NBuffer& language) {
    const std::size_t dash = locale.find(u'-');
    if (dash == I18NString::npos) {
        return 0;
    }
    language = locale.substr(0, dash);
    return 1;
}
