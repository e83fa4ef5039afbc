#pragma once

#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct UConverter;

/// Converts between UTF-16 and one narrow encoding. What the target cannot hold becomes U+FFFD, or "?"
/// where there is no U+FFFD; what is not valid becomes U+FFFD. Constant operations are safe from
/// several threads at once; copies are cheap.
class MRL_EXPORT I18NConverter {
public:
    /// UTF-8.
    I18NConverter() noexcept = default;
    /// @param encoding a name such as "utf-8", "ISO-8859-1", "utf16" (writes a byte order mark),
    /// "UTF16_LittleEndian"; case, dashes and underscores do not count.
    /// @throws HBLIllegalStateError naming an encoding that is unknown.
    explicit I18NConverter(const char* encoding);

    /// The name of the encoding, "UTF-8".
    std::string getName() const;

    /// The text in the narrow encoding.
    std::string fromUnicode(std::u16string_view text) const;
    std::string fromUnicode(const I18NString& text) const { return fromUnicode(text.view()); }

    /// The same into a new block with a NUL behind, owned by the caller; give back with delete[].
    /// @param bytes receives the number of bytes without the NUL, if not null.
    char* fromUnicodeNew(std::u16string_view text, std::size_t* bytes = nullptr) const;

    /// The same into `size` bytes at `buffer`, with a NUL behind.
    /// @param bytes receives the number of bytes without the NUL, if not null.
    /// @return 1, or 0 when text and NUL do not fit; the buffer then holds nothing of use.
    int fromUnicode(std::u16string_view text, char* buffer, std::size_t size,
                    std::size_t* bytes = nullptr) const;

    /// The text of bytes in the narrow encoding.
    I18NString toUnicode(std::string_view bytes) const;

private:
    std::shared_ptr<const UConverter> m_converter; // null is UTF-8; cloned for each use, it has state
};
