#include "HBLCore/HBLUtCrc32.h"

#include "HBLCore/I18NString.h"

#include <cstring>
#include <string>
#include <zlib.h>

unsigned HBLUtCrc32::crc32(const char* text, unsigned seed) noexcept {
    return text ? crc32(seed, text, std::strlen(text)) : seed;
}

unsigned HBLUtCrc32::crc32(unsigned seed, const void* bytes, std::size_t length) noexcept {
    if (!bytes)
        return seed; // zlib would answer 0
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
