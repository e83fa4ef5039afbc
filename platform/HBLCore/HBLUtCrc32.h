#pragma once

#include "HBLCore/MRLExport.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

class I18NString;

/// The standard CRC-32, as in zlib. A result is the seed for the bytes that follow.
class MRL_EXPORT HBLUtCrc32 {
public:
    /// Of the bytes of `text` without its NUL; `seed` when null.
    static unsigned crc32(const char* text, unsigned seed) noexcept;
    /// Of `length` bytes; `seed` when `bytes` is null.
    static unsigned crc32(unsigned seed, const void* bytes, std::size_t length) noexcept;
    /// Of the UTF-16 units with the terminator, size() bytes.
    /// @param mode 0 takes the text as it is, 1 with its ASCII letters in lower case.
    static unsigned crc32(const I18NString& text, int mode, unsigned seed);

    /// Of a text without its NUL, when compiling: `case HBLUtCrc32::constant("name"):`.
    static constexpr std::uint32_t constant(std::string_view text) noexcept {
        std::uint32_t crc = 0xFFFFFFFFu;
        for (char c : text)
            crc = s_table[(crc ^ static_cast<unsigned char>(c)) & 0xFFu] ^ (crc >> 8);
        return ~crc;
    }

private:
    static constexpr std::array<std::uint32_t, 256> makeTable() noexcept {
        std::array<std::uint32_t, 256> table{};
        for (std::uint32_t i = 0; i < table.size(); ++i) {
            std::uint32_t crc = i;
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc >> 1) ^ ((crc & 1u) ? 0xEDB88320u : 0u);
            table[i] = crc;
        }
        return table;
    }
    static const std::array<std::uint32_t, 256> s_table;
};

inline constexpr std::array<std::uint32_t, 256> HBLUtCrc32::s_table = HBLUtCrc32::makeTable();
