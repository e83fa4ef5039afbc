#pragma once

#include "HBLCore/MRLExport.h"

#include <atomic>
#include <compare>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

/// Text in UTF-16. Narrow text that goes in or comes out is UTF-8; what is not valid becomes U+FFFD.
/// Constant operations are safe from several threads at once.
class MRL_EXPORT I18NString {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    I18NString() noexcept = default;
    I18NString(const char* utf8); // null is empty
    I18NString(const char* utf8, std::size_t bytes);
    I18NString(std::string_view utf8);
    I18NString(const std::string& utf8)
        : I18NString(std::string_view(utf8)) {}
    I18NString(const char16_t* text); // up to the zero; null is empty
    I18NString(const char16_t* text, std::size_t units);
    I18NString(std::u16string_view text);
    I18NString(const I18NString& other);
    I18NString(I18NString&& other) noexcept;
    I18NString& operator=(const I18NString& other);
    I18NString& operator=(I18NString&& other) noexcept;
    ~I18NString();

    /// Bytes of the text with its two-byte terminator; 2 when empty.
    std::size_t size() const noexcept { return (m_text.size() + 1) * sizeof(char16_t); }
    /// 16-bit units without the terminator.
    std::size_t length() const noexcept { return m_text.size(); }
    bool empty() const noexcept { return m_text.empty(); }

    /// The units, zero behind them; never null, good until the text changes.
    const char16_t* getExternalBuffer() const noexcept { return m_text.c_str(); }
    std::u16string_view view() const noexcept { return m_text; }
    char16_t operator[](std::size_t index) const noexcept { return m_text[index]; }

    /// The text in UTF-8.
    std::string toUtf8() const;
    /// The same, kept by the string until the text changes.
    const char* c_str() const;

    void setTo(const char16_t* text, std::size_t units);
    void setTo(const I18NString& text) { *this = text; }
    /// Makes the text empty.
    void erase() noexcept;
    /// Removes `units` units from `position` on; positions beyond the end remove nothing.
    void erase(std::size_t position, std::size_t units = npos) noexcept;

    I18NString& append(const I18NString& other);
    I18NString& append(char16_t unit);
    I18NString& operator+=(const I18NString& other) { return append(other); }
    I18NString& operator<<(const I18NString& other) { return append(other); }
    friend I18NString operator+(I18NString left, const I18NString& right) { return left.append(right), left; }

    /// The position in units of the first or last occurrence at or behind / at or before `from`;
    /// npos if there is none.
    std::size_t find(const I18NString& what, std::size_t from = 0) const noexcept;
    std::size_t find(char16_t unit, std::size_t from = 0) const noexcept { return m_text.find(unit, from); }
    std::size_t rfind(const I18NString& what, std::size_t from = npos) const noexcept;
    std::size_t rfind(char16_t unit, std::size_t from = npos) const noexcept {
        return m_text.rfind(unit, from);
    }
    bool startsWith(const I18NString& what) const noexcept;
    bool endsWith(const I18NString& what) const noexcept;
    /// Units from `position` on, cut to what there is.
    I18NString substr(std::size_t position, std::size_t units = npos) const;
    /// Replaces each occurrence of `what`, which must not be empty.
    void replaceAll(const I18NString& what, const I18NString& with);
    /// Equal but for the case of letters, by Unicode's simple case folding.
    bool equalsIgnoreCase(const I18NString& other) const;

    // By 16-bit units.
    friend bool operator==(const I18NString& a, const I18NString& b) noexcept { return a.m_text == b.m_text; }
    friend std::strong_ordering operator<=>(const I18NString& a, const I18NString& b) noexcept {
        return a.m_text.compare(b.m_text) <=> 0;
    }
    friend MRL_EXPORT std::ostream& operator<<(std::ostream& out, const I18NString& text); // UTF-8

private:
    void dropNarrow() noexcept;

    std::u16string m_text;
    mutable std::atomic<const std::string*> m_narrow = nullptr; // owned; made by the first c_str()
};

template <>
struct std::hash<I18NString> {
    std::size_t operator()(const I18NString& text) const noexcept {
        return std::hash<std::u16string_view>()(text.view());
    }
};
