#include "HBLCore/I18NString.h"

#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/detail/Utf.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <memory>
#include <ostream>
#include <utility>

using mrl::detail::utf16FromUtf8;
using mrl::detail::utf8FromUtf16;

I18NString::I18NString(const char* utf8)
    : m_text(utf16FromUtf8(utf8 ? utf8 : "")) {}
I18NString::I18NString(const char* utf8, std::size_t bytes)
    : m_text(utf16FromUtf8(utf8 ? std::string_view(utf8, bytes) : std::string_view())) {}
I18NString::I18NString(std::string_view utf8)
    : m_text(utf16FromUtf8(utf8)) {}
I18NString::I18NString(const char16_t* text)
    : m_text(text ? text : u"") {}
I18NString::I18NString(const char16_t* text, std::size_t units)
    : m_text(text ? std::u16string_view(text, units) : std::u16string_view()) {}
I18NString::I18NString(std::u16string_view text)
    : m_text(text) {}
I18NString::I18NString(const I18NString& other)
    : m_text(other.m_text) {}
I18NString::I18NString(I18NString&& other) noexcept
    : m_text(std::move(other.m_text))
    , m_narrow(other.m_narrow.exchange(nullptr)) {
    other.m_text.clear();
}

I18NString& I18NString::operator=(const I18NString& other) {
    if (this != &other) {
        m_text = other.m_text;
        dropNarrow();
    }
    return *this;
}

I18NString& I18NString::operator=(I18NString&& other) noexcept {
    if (this != &other) {
        dropNarrow();
        m_text = std::move(other.m_text);
        m_narrow = other.m_narrow.exchange(nullptr);
        other.m_text.clear();
    }
    return *this;
}

I18NString::~I18NString() {
    dropNarrow();
}

void I18NString::dropNarrow() noexcept {
    delete m_narrow.exchange(nullptr);
}

std::string I18NString::toUtf8() const {
    return utf8FromUtf16(m_text);
}

const char* I18NString::c_str() const {
    if (const std::string* kept = m_narrow.load(std::memory_order_acquire))
        return kept->c_str();
    auto made = std::make_unique<const std::string>(toUtf8());
    const std::string* expected = nullptr;
    // Another thread may have been first; then its text is the one that stays.
    if (m_narrow.compare_exchange_strong(expected, made.get(), std::memory_order_acq_rel))
        return made.release()->c_str();
    return expected->c_str();
}

void I18NString::setTo(const char16_t* text, std::size_t units) {
    m_text = text ? std::u16string_view(text, units) : std::u16string_view();
    dropNarrow();
}

void I18NString::erase() noexcept {
    m_text.clear();
    dropNarrow();
}

void I18NString::erase(std::size_t position, std::size_t units) noexcept {
    if (position >= m_text.size())
        return;
    m_text.erase(position, units);
    dropNarrow();
}

I18NString& I18NString::append(const I18NString& other) {
    m_text += other.m_text;
    dropNarrow();
    return *this;
}

I18NString& I18NString::append(char16_t unit) {
    m_text += unit;
    dropNarrow();
    return *this;
}

std::size_t I18NString::find(const I18NString& what, std::size_t from) const noexcept {
    return m_text.find(what.m_text, from);
}

std::size_t I18NString::rfind(const I18NString& what, std::size_t from) const noexcept {
    return m_text.rfind(what.m_text, from);
}

bool I18NString::startsWith(const I18NString& what) const noexcept {
    return m_text.starts_with(what.m_text);
}
bool I18NString::endsWith(const I18NString& what) const noexcept {
    return m_text.ends_with(what.m_text);
}

I18NString I18NString::substr(std::size_t position, std::size_t units) const {
    return position < m_text.size() ? I18NString(view().substr(position, units)) : I18NString();
}

void I18NString::replaceAll(const I18NString& what, const I18NString& with) {
    HBL_ASSERT(!what.empty());
    std::u16string replaced;
    std::size_t done = 0;
    for (std::size_t at; (at = m_text.find(what.m_text, done)) != npos; done = at + what.m_text.size())
        replaced.append(m_text, done, at - done).append(with.m_text);
    replaced.append(m_text, done);
    m_text = std::move(replaced);
    dropNarrow();
}

bool I18NString::equalsIgnoreCase(const I18NString& other) const {
    UErrorCode status = U_ZERO_ERROR;
    return u_strCaseCompare(m_text.data(), HBLDowncastSize::int32(m_text.size()), other.m_text.data(),
                            HBLDowncastSize::int32(other.m_text.size()), U_FOLD_CASE_DEFAULT, &status) == 0 &&
           U_SUCCESS(status);
}

std::ostream& operator<<(std::ostream& out, const I18NString& text) {
    return out << text.toUtf8();
}
