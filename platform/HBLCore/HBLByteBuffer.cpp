#include "HBLCore/HBLByteBuffer.h"

#include "HBLCore/HBLArena.h"
#include "HBLCore/HBLFailure.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <functional>
#include <limits>

HBLByteBuffer::HBLByteBuffer(int, std::size_t initial, std::size_t growth) noexcept
    : m_initial(initial)
    , m_growth(growth) {}

HBLByteBuffer::HBLByteBuffer(const HBLByteBuffer& other)
    : m_initial(other.m_initial)
    , m_growth(other.m_growth) {
    appendChars(other.str(), other.pcount());
}

HBLByteBuffer::HBLByteBuffer(HBLByteBuffer&& other) noexcept
    : m_pBuffer(std::exchange(other.m_pBuffer, nullptr))
    , m_length(std::exchange(other.m_length, 0))
    , m_capacity(std::exchange(other.m_capacity, 0))
    , m_initial(other.m_initial)
    , m_growth(other.m_growth) {}

HBLByteBuffer& HBLByteBuffer::operator=(HBLByteBuffer other) noexcept {
    std::swap(m_pBuffer, other.m_pBuffer);
    std::swap(m_length, other.m_length);
    std::swap(m_capacity, other.m_capacity);
    std::swap(m_initial, other.m_initial);
    std::swap(m_growth, other.m_growth);
    return *this;
}

HBLByteBuffer::~HBLByteBuffer() {
    HBLArena::release(m_pBuffer);
}

char* HBLByteBuffer::str() {
    if (!m_pBuffer)
        grow(m_initial);
    return m_pBuffer;
}

const char* HBLByteBuffer::str() const noexcept {
    return m_pBuffer ? m_pBuffer : "";
}

void HBLByteBuffer::grow(std::size_t capacity) {
    if (capacity == std::numeric_limits<std::size_t>::max())
        hblOutOfMemory(HBL_HERE, "HBLByteBuffer::grow");
    auto* const larger = static_cast<char*>(hblRethrowing(
        nullptr, [&] { return HBLArena::allocate(capacity + 1); }, HBL_HERE));
    if (m_pBuffer)
        std::memcpy(larger, m_pBuffer, m_length);
    larger[m_length] = '\0';
    HBLArena::release(m_pBuffer);
    m_pBuffer = larger;
    m_capacity = capacity;
}

void HBLByteBuffer::assignExactly(std::string_view text) {
    m_length = 0;
    grow(text.size());
    text.copy(m_pBuffer, text.size());
    m_length = text.size();
    m_pBuffer[m_length] = '\0';
}

void HBLByteBuffer::reserve(std::size_t size) {
    if (m_pBuffer && size <= m_capacity - m_length)
        return;
    constexpr std::size_t most = std::numeric_limits<std::ptrdiff_t>::max() - 1;
    if (size > most - m_length)
        hblOutOfMemory(HBL_HERE, "HBLByteBuffer::reserve");
    // The growth is the least step: a long series of appends stays linear.
    const std::size_t step = std::max(m_growth ? m_growth : m_capacity, m_capacity / 2);
    const std::size_t stepped = m_capacity > most - step ? most : m_capacity + step;
    grow(std::max({m_length + size, m_pBuffer ? stepped : m_initial}));
}

void HBLByteBuffer::appendChars(const char* data, std::size_t size) {
    if (!data || size == 0)
        return;
    const std::less<const char*> before;
    const bool own = m_pBuffer && !before(data, m_pBuffer) && !before(m_pBuffer + m_length, data);
    const std::size_t offset = own ? static_cast<std::size_t>(data - m_pBuffer) : 0;
    reserve(size);
    if (own) // growing has moved the bytes
        data = m_pBuffer + offset;
    std::memmove(m_pBuffer + m_length, data, size);
    m_length += size;
    m_pBuffer[m_length] = '\0';
}

void HBLByteBuffer::append(char c) {
    reserve(1);
    m_pBuffer[m_length] = c;
    m_pBuffer[++m_length] = '\0';
}

void HBLByteBuffer::append(const char* text) {
    if (text)
        appendChars(text, std::strlen(text));
}

HBLByteBuffer& HBLByteBuffer::operator<<(const char* text) {
    append(text);
    return *this;
}

HBLByteBuffer& HBLByteBuffer::operator<<(std::string_view text) {
    append(text);
    return *this;
}

HBLByteBuffer& HBLByteBuffer::operator<<(char c) {
    append(c);
    return *this;
}

HBLByteBuffer& HBLByteBuffer::operator<<(int number) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    appendChars(digits, static_cast<std::size_t>(end - digits));
    return *this;
}

HBLByteBuffer& HBLByteBuffer::operator<<(const HBLByteBuffer& other) {
    appendChars(other.str(), other.pcount());
    return *this;
}

void HBLByteBuffer::setLength(std::size_t length) {
    if (length > m_capacity || !m_pBuffer) {
        const std::size_t room = m_capacity;
        reserve(length - m_length);
        std::memset(m_pBuffer + std::max(room, m_length), 0, length - std::max(room, m_length));
    }
    m_length = length;
    m_pBuffer[m_length] = '\0';
}

void HBLByteBuffer::chop(std::size_t size) noexcept {
    if (!m_pBuffer)
        return;
    const std::size_t dropped = std::min(size, m_length);
    m_length -= dropped;
    std::memmove(m_pBuffer, m_pBuffer + dropped, m_length);
    m_pBuffer[m_length] = '\0';
}

void HBLByteBuffer::reset() noexcept {
    m_length = 0;
    if (m_pBuffer)
        m_pBuffer[0] = '\0';
}
