#pragma once

#include <cstddef>
#include <string_view>

// The parser's UTF-16 to the UTF-8 of the objects, by a plain loop: it runs over all the text of every
// reply, and allocates nothing.
namespace mrl::detail {

/// The bytes that one UTF-16 unit can need at most; a pair needs fewer for each of its two.
inline constexpr std::size_t maxUtf8PerUnit = 3;

constexpr bool isLeadUnit(char16_t c) {
    return (c & 0xFC00) == 0xD800;
}
constexpr bool isTrailUnit(char16_t c) {
    return (c & 0xFC00) == 0xDC00;
}

/// The bytes that toUtf8() writes.
inline std::size_t utf8Length(std::u16string_view text) {
    std::size_t length = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c < 0x80) {
            continue;
        }
        ++length;
        if (isLeadUnit(c) && i + 1 < text.size() && isTrailUnit(text[i + 1])) {
            ++length; // four bytes for two units
            ++i;
        } else if (c >= 0x800) {
            ++length;
        }
    }
    return length;
}

/// How many units at the front are ASCII, in whole groups where it can.
inline std::size_t asciiUnits(std::u16string_view text) {
    std::size_t i = 0;
    for (constexpr std::size_t group = 8; i + group <= text.size(); i += group) {
        unsigned all = 0;
        for (std::size_t k = 0; k < group; ++k) {
            all |= text[i + k];
        }
        if (all >= 0x80) {
            break;
        }
    }
    while (i < text.size() && text[i] < 0x80) {
        ++i;
    }
    return i;
}

/// Writes `text` to `out`, which has room for maxUtf8PerUnit bytes a unit, and returns the end.
/// Half a pair becomes U+FFFD.
inline char* toUtf8(std::u16string_view text, char* out) {
    const auto put = [&out](unsigned bits) { *out++ = static_cast<char>(bits); };
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned c = text[i];
        if (c < 0x80) {
            put(c);
            continue;
        }
        if (isLeadUnit(text[i]) && i + 1 < text.size() && isTrailUnit(text[i + 1])) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] & 0x3FFu);
            put(0xF0 | (c >> 18));
            put(0x80 | ((c >> 12) & 0x3F));
            put(0x80 | ((c >> 6) & 0x3F));
            put(0x80 | (c & 0x3F));
            continue;
        }
        if ((c & 0xF800) == 0xD800) {
            c = 0xFFFD;
        }
        if (c < 0x800) {
            put(0xC0 | (c >> 6));
        } else {
            put(0xE0 | (c >> 12));
            put(0x80 | ((c >> 6) & 0x3F));
        }
        put(0x80 | (c & 0x3F));
    }
    return out;
}

} // namespace mrl::detail
