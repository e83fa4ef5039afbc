#include "HBLCore/detail/Utf.h"

#include "HBLCore/HBLDowncastSize.h"

#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace {

constexpr UChar32 kReplacement = 0xFFFD;

void check(UErrorCode status, const HBLFileLocation& where = HBLFileLocation::current()) {
    if (U_FAILURE(status))
        hblAssertFailed(std::string("text conversion failed: ") + u_errorName(status), where);
}

/// Copies the ASCII at the front, which is all of most texts, in blocks that the compiler makes vectors of.
/// @return its length.
template <class From, class To>
std::size_t copyAscii(std::basic_string_view<From> from, To* to) {
    constexpr std::size_t block = 16;
    std::size_t done = 0;
    for (; from.size() - done >= block; done += block) {
        const From* const begin = from.data() + done;
        std::uint32_t all = 0;
        for (std::size_t i = 0; i < block; ++i)
            all |= static_cast<std::make_unsigned_t<From>>(begin[i]);
        if (all >= 0x80)
            break;
        for (std::size_t i = 0; i < block; ++i)
            to[done + i] = static_cast<To>(begin[i]);
    }
    for (; done < from.size() && static_cast<std::make_unsigned_t<From>>(from[done]) < 0x80; ++done)
        to[done] = static_cast<To>(from[done]);
    return done;
}

} // namespace

std::u16string mrl::detail::utf16FromUtf8(std::string_view bytes) {
    // No byte gives more than one unit, so one pass into room of the same number does.
    std::u16string units(bytes.size(), u'\0');
    const std::size_t ascii = copyAscii(bytes, units.data());
    bytes.remove_prefix(ascii);
    if (bytes.empty())
        return units;
    const auto length = HBLDowncastSize::int32(bytes.size());
    int32_t made = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(units.data() + ascii, length, &made, bytes.data(), length, kReplacement, nullptr,
                         &status);
    check(status);
    units.resize(ascii + static_cast<std::size_t>(made));
    return units;
}

std::string mrl::detail::utf8FromUtf16(std::u16string_view units) {
    // A unit gives at most three bytes; a pair of surrogates, four.
    std::string bytes(units.size() * 3, '\0');
    const std::size_t ascii = copyAscii(units, bytes.data());
    units.remove_prefix(ascii);
    int32_t made = 0;
    if (!units.empty()) {
        UErrorCode status = U_ZERO_ERROR;
        u_strToUTF8WithSub(bytes.data() + ascii, HBLDowncastSize::int32(bytes.size() - ascii), &made,
                           units.data(), HBLDowncastSize::int32(units.size()), kReplacement, nullptr,
                           &status);
        check(status);
    }
    bytes.resize(ascii + static_cast<std::size_t>(made));
    return bytes;
}

bool mrl::detail::utf8FromUtf16(std::u16string_view units, char* buffer, std::size_t size,
                                std::size_t& written) {
    written = 0;
    if (size == 0)
        return false;
    if (!units.empty()) {
        constexpr std::size_t most = std::numeric_limits<int32_t>::max();
        const auto room = static_cast<int32_t>(std::min(size - 1, most)); // one byte is for the NUL
        int32_t made = 0;
        UErrorCode status = U_ZERO_ERROR;
        u_strToUTF8WithSub(buffer, room, &made, units.data(), HBLDowncastSize::int32(units.size()),
                           kReplacement, nullptr, &status);
        if (status == U_BUFFER_OVERFLOW_ERROR)
            return false;
        check(status);
        written = static_cast<std::size_t>(made);
    }
    buffer[written] = '\0';
    return true;
}
