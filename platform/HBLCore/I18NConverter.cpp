#include "HBLCore/I18NConverter.h"

#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/detail/Utf.h"

#include <unicode/ucnv.h>

#include <cstring>
#include <vector>

namespace {

struct Close {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, Close>;

void check(UErrorCode status, const char* what, const HBLFileLocation& where = HBLFileLocation::current()) {
    if (status == U_MEMORY_ALLOCATION_ERROR)
        hblOutOfMemory(where, "I18NConverter");
    if (U_FAILURE(status))
        HBLIllegalStateError(0, (std::string(what) + ": " + u_errorName(status)).c_str())
            .hurl(where, "I18NConverter", "HBL_THROW");
}

Converter clone(const UConverter& converter) {
    UErrorCode status = U_ZERO_ERROR;
    Converter copy(ucnv_clone(&converter, &status));
    check(status, "cannot clone a converter");
    return copy;
}

/// What stands for a character that the encoding lacks: U+FFFD if it has that, else "?".
void setSubstitute(UConverter* converter) {
    for (const char16_t* substitute : {u"\uFFFD", u"?"}) {
        UErrorCode status = U_ZERO_ERROR;
        ucnv_setSubstString(converter, substitute, 1, &status);
        if (U_SUCCESS(status))
            return;
    } // else what the encoding itself foresees
}

} // namespace

I18NConverter::I18NConverter(const char* encoding) {
    HBL_ASSERT(encoding);
    UErrorCode status = U_ZERO_ERROR;
    Converter opened(*encoding ? ucnv_open(encoding, &status) : nullptr); // "" would be the system's default
    if (!opened && U_SUCCESS(status))
        status = U_FILE_ACCESS_ERROR;
    if (status == U_FILE_ACCESS_ERROR)
        HBL_THROW(HBLIllegalStateError(
                      0, ("\"" + std::string(encoding) + "\" is not the name of a known encoding").c_str()),
                  "I18NConverter::I18NConverter");
    check(status, encoding);
    if (ucnv_getType(opened.get()) == UCNV_UTF8)
        return;
    setSubstitute(opened.get());
    m_converter = std::shared_ptr<const UConverter>(opened.release(), [](const UConverter* converter) {
        ucnv_close(const_cast<UConverter*>(converter));
    });
}

std::string I18NConverter::getName() const {
    if (!m_converter)
        return "UTF-8";
    UErrorCode status = U_ZERO_ERROR;
    const char* name = ucnv_getName(m_converter.get(), &status);
    check(status, "cannot name a converter");
    return name;
}

std::string I18NConverter::fromUnicode(std::u16string_view text) const {
    if (!m_converter)
        return mrl::detail::utf8FromUtf16(text);
    const Converter converter = clone(*m_converter);
    const auto units = HBLDowncastSize::int32(text.size());
    std::string bytes(HBLDowncastSize::size(UCNV_GET_MAX_BYTES_FOR_STRING(
                          std::int64_t{units}, ucnv_getMaxCharSize(converter.get()))),
                      '\0');
    UErrorCode status = U_ZERO_ERROR;
    const int32_t made = ucnv_fromUChars(converter.get(), bytes.data(), HBLDowncastSize::int32(bytes.size()),
                                         text.data(), units, &status);
    check(status, "cannot convert from UTF-16");
    bytes.resize(static_cast<std::size_t>(made));
    return bytes;
}

char* I18NConverter::fromUnicodeNew(std::u16string_view text, std::size_t* bytes) const {
    return hblRethrowing("I18NConverter::fromUnicodeNew", [&] {
        const std::string converted = fromUnicode(text);
        char* copy = hblNewChars(HBL_HERE, converted.size() + 1);
        std::memcpy(copy, converted.c_str(), converted.size() + 1);
        if (bytes)
            *bytes = converted.size();
        return copy;
    });
}

int I18NConverter::fromUnicode(std::u16string_view text, char* buffer, std::size_t size,
                               std::size_t* bytes) const {
    std::size_t written = 0;
    if (!m_converter) {
        if (!mrl::detail::utf8FromUtf16(text, buffer, size, written))
            return 0;
    } else {
        const std::string converted = fromUnicode(text);
        if (converted.size() >= size)
            return 0;
        std::memcpy(buffer, converted.c_str(), converted.size() + 1);
        written = converted.size();
    }
    if (bytes)
        *bytes = written;
    return 1;
}

I18NString I18NConverter::toUnicode(std::string_view bytes) const {
    if (!m_converter)
        return I18NString(bytes);
    const Converter converter = clone(*m_converter);
    const auto length = HBLDowncastSize::int32(bytes.size());
    UErrorCode status = U_ZERO_ERROR;
    std::u16string units(bytes.size() * 2 + 1, u'\0');
    const int32_t made = ucnv_toUChars(converter.get(), units.data(), HBLDowncastSize::int32(units.size()),
                                       bytes.data(), length, &status);
    check(status, "cannot convert to UTF-16");
    return {units.data(), static_cast<std::size_t>(made)};
}
