#include "Common/HBLI18NBuffer.h"

#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLUtCrc32.h"

#include <cstring>
#include <memory>
#include <ostream>

namespace {

constexpr const char* SOURCE = "../Common/HBLI18NBuffer";

unsigned char asciiLower(unsigned char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c - 'A' + 'a') : c;
}

} // namespace

HBLI18NBuffer::HBLI18NBuffer(const HBLI18NBuffer& other) {
    assign(textOf(other));
}

HBLI18NBuffer::HBLI18NBuffer(const I18NString& text) {
    assign(textOf(text));
}

HBLI18NBuffer::HBLI18NBuffer(const unsigned short* text) {
    assign(textOf(text));
}

HBLI18NBuffer::~HBLI18NBuffer() {
    if (m_buffer != m_inline) {
        delete[] m_buffer;
    }
}

HBLI18NBuffer& HBLI18NBuffer::operator=(const HBLI18NBuffer& other) {
    if (this != &other) {
        assign(textOf(other));
    }
    return *this;
}

HBLI18NBuffer& HBLI18NBuffer::operator=(const I18NString& text) {
    assign(textOf(text));
    return *this;
}

HBLI18NBuffer& HBLI18NBuffer::operator=(const unsigned short* text) {
    assign(textOf(text));
    return *this;
}

HBLI18NBuffer& HBLI18NBuffer::operator+=(const HBLI18NBuffer& other) {
    append(textOf(other));
    return *this;
}

HBLI18NBuffer& HBLI18NBuffer::operator+=(const I18NString& text) {
    append(textOf(text));
    return *this;
}

HBLI18NBuffer& HBLI18NBuffer::operator+=(const unsigned short* text) {
    append(textOf(text));
    return *this;
}

HBLI18NBuffer::Text HBLI18NBuffer::textOf(const I18NString& text) {
    return {text.getExternalBuffer(), text.empty() ? 0 : HBLDowncastSize::uint32(text.size())};
}

HBLI18NBuffer::Text HBLI18NBuffer::textOf(const unsigned short* text) {
    if (text == nullptr || *text == 0) {
        return {text, 0};
    }
    std::size_t units = 0;
    while (text[units] != 0) {
        ++units;
    }
    return {text, HBLDowncastSize::uint32((units + 1) * UNIT)};
}

void HBLI18NBuffer::assign(const Text& text) {
    clear();
    createBuffer(text.size);
    if (text.size != 0) {
        std::memcpy(m_buffer, text.data, text.size);
    }
    m_size = text.size;
}

void HBLI18NBuffer::append(const Text& text) {
    if (text.size == 0) {
        return;
    }
    const unsigned int kept = getDataSize();
    const unsigned int size = HBLDowncastSize::uint32(std::size_t{kept} + text.size);
    unsigned char* const before = m_buffer;
    std::unique_ptr<unsigned char[]> old; // ends with this call, whatever happens
    if (kept != 0) {
        old.reset(before != m_inline ? before : nullptr);
        m_buffer = nullptr;
    }
    reset();
    createBuffer(size);
    if (kept != 0 && m_buffer != before) {
        std::memcpy(m_buffer, before, kept);
    }
    std::memmove(m_buffer + kept, text.data, text.size); // the text may be this buffer's own
    m_size = size;
}

void HBLI18NBuffer::createBuffer(unsigned int bytes) {
    if (bytes > m_capacity) {
        if (m_buffer != m_inline) {
            delete[] m_buffer;
        }
        m_buffer = nullptr;
    }
    if (m_buffer == nullptr) {
        m_capacity = 0;
        if (bytes != 0) {
            m_buffer = bytes <= INLINE_BYTES ? m_inline
                                             : hblRethrowing(
                                                   nullptr, [bytes] { return new unsigned char[bytes]; },
                                                   HBLFileLocation(SOURCE, __LINE__));
            m_capacity = bytes;
        }
    }
}

void HBLI18NBuffer::reset() {
    m_size = 0;
    m_crc = 0;
    m_cssCrc = 0;
}

void HBLI18NBuffer::clear() {
    reset();
    std::memset(m_inline, 0, TERMINATOR);
}

void HBLI18NBuffer::reserve(unsigned int bytes) {
    if (m_capacity == 0) {
        createBuffer(bytes);
    }
}

void HBLI18NBuffer::truncate(unsigned int units) {
    if (units < getCodepoints()) {
        HBL_ASSERT(m_buffer);
        std::memset(m_buffer + std::size_t{units} * UNIT, 0, TERMINATOR);
        m_size = units * UNIT + TERMINATOR;
    }
}

bool HBLI18NBuffer::operator==(const HBLI18NBuffer& other) const {
    return m_size == other.m_size && std::memcmp(getBuffer(), other.getBuffer(), m_size) == 0;
}

bool HBLI18NBuffer::operator!=(const HBLI18NBuffer& other) const {
    return !(*this == other);
}

bool HBLI18NBuffer::holdsTextOf(const I18NString& text) const {
    const unsigned int size = getDataSize(); // an empty string has a terminator, an empty buffer none
    return size == text.size() - TERMINATOR && std::memcmp(getBuffer(), text.getExternalBuffer(), size) == 0;
}

bool HBLI18NBuffer::operator==(const I18NString& text) const {
    return (m_size == 0 || m_buffer != nullptr) && holdsTextOf(text);
}

bool HBLI18NBuffer::operator!=(const I18NString& text) const {
    return (m_size == 0 || m_buffer != nullptr) && !holdsTextOf(text); // text without a buffer is neither
}

bool HBLI18NBuffer::operator==(unsigned int crc) const {
    return getCrc() == crc;
}

bool HBLI18NBuffer::operator!=(unsigned int crc) const {
    return getCrc() != crc;
}

I18NString HBLI18NBuffer::getString() const {
    I18NString text;
    getString(text);
    return text;
}

void HBLI18NBuffer::getString(I18NString& out) const {
    if (m_size == 0) {
        out.erase();
    } else {
        out.setTo(static_cast<const char16_t*>(getBuffer()), getCodepoints());
    }
}

unsigned int HBLI18NBuffer::getCrc() const {
    if (m_crc == 0 && m_size != 0) {
        m_crc = HBLUtCrc32::crc32(0, m_buffer, m_size);
    }
    return m_crc;
}

unsigned int HBLI18NBuffer::getCssCrc() const {
    if (m_cssCrc == 0 && m_size != 0) {
        for (unsigned int i = 0; i < m_size; ++i) {
            const unsigned char byte = asciiLower(m_buffer[i]);
            m_cssCrc = HBLUtCrc32::crc32(m_cssCrc, &byte, 1);
        }
    }
    return m_cssCrc;
}

int HBLI18NBuffer::startsWith(const HBLI18NBuffer& other) const {
    return matches(other, false);
}

int HBLI18NBuffer::endsWith(const HBLI18NBuffer& other) const {
    return matches(other, true);
}

int HBLI18NBuffer::matches(const HBLI18NBuffer& other, bool atEnd) const {
    if (m_buffer == nullptr || other.m_buffer == nullptr || m_size <= TERMINATOR ||
        other.m_size <= TERMINATOR || other.m_size > m_size) {
        return 0;
    }
    const unsigned int from = atEnd ? m_size - other.m_size : 0;
    return std::memcmp(m_buffer + from, other.m_buffer, other.getDataSize()) == 0 ? 1 : 0;
}

std::ostream& operator<<(std::ostream& out, const HBLI18NBuffer& buffer) {
    return out << buffer.getString();
}

std::ostream& operator<<(std::ostream& out, HBLI18NBuffer& buffer) {
    return out << buffer.getString();
}
