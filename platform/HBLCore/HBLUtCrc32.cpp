#include "HBLCore/HBLUtCrc32.h"

#include "HBLCore/I18NString.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <zlib.h>

namespace {

// What eight bytes at a time need: row n is the table for a byte with n zero bytes behind it.
using Tables = std::array<std::array<std::uint32_t, 256>, 8>;

constexpr Tables s_tables = [] {
    Tables tables{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t crc = i;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1u) ? 0xEDB88320u : 0u);
        tables[0][i] = crc;
    }
    for (std::size_t row = 1; row < tables.size(); ++row)
        for (std::size_t i = 0; i < 256; ++i)
            tables[row][i] = (tables[row - 1][i] >> 8) ^ tables[0][tables[row - 1][i] & 0xFFu];
    return tables;
}();

// Names are short: for these the library's preparations take longer than the work.
constexpr std::size_t shortText = 64;

unsigned crcOfShort(unsigned seed, const unsigned char* p, std::size_t length) noexcept {
    std::uint32_t crc = ~seed;
    for (; length >= 8; length -= 8, p += 8) {
        crc ^= std::uint32_t{p[0]} | std::uint32_t{p[1]} << 8 | std::uint32_t{p[2]} << 16 |
               std::uint32_t{p[3]} << 24;
        crc = s_tables[7][crc & 0xFFu] ^ s_tables[6][(crc >> 8) & 0xFFu] ^ s_tables[5][(crc >> 16) & 0xFFu] ^
              s_tables[4][crc >> 24] ^ s_tables[3][p[4]] ^ s_tables[2][p[5]] ^ s_tables[1][p[6]] ^
              s_tables[0][p[7]];
    }
    for (; length > 0; --length, ++p)
        crc = s_tables[0][(crc ^ *p) & 0xFFu] ^ (crc >> 8);
    return ~crc;
}

} // namespace

unsigned HBLUtCrc32::crc32(const char* text, unsigned seed) noexcept {
    return text ? crc32(seed, text, std::strlen(text)) : seed;
}

unsigned HBLUtCrc32::crc32(unsigned seed, const void* bytes, std::size_t length) noexcept {
    if (!bytes)
        return seed; // zlib would answer 0
    if (length < shortText)
        return crcOfShort(seed, static_cast<const unsigned char*>(bytes), length);
    return static_cast<unsigned>(crc32_z(seed, static_cast<const Bytef*>(bytes), length));
}

unsigned HBLUtCrc32::crc32(const I18NString& text, int mode, unsigned seed) {
    if (mode == 0)
        return crc32(seed, text.getExternalBuffer(), text.size());
    std::u16string lower(text.view());
    for (char16_t& unit : lower)
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit - u'A' + u'a');
    return crc32(seed, lower.c_str(), (lower.size() + 1) * sizeof(char16_t));
}
