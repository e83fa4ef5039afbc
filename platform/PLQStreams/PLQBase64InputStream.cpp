#include "PLQStreams/PLQBase64InputStream.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQStreamError.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace {

// What a character is: 0 to 63 its value, or one of these.
constexpr std::uint8_t s_padding = 64;
constexpr std::uint8_t s_space = 65;
constexpr std::uint8_t s_foreign = 66;

constexpr std::array<std::uint8_t, 256> s_kind = [] {
    std::array<std::uint8_t, 256> kind{};
    kind.fill(s_foreign);
    std::uint8_t value = 0;
    for (char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"))
        kind[static_cast<unsigned char>(c)] = value++;
    kind['='] = s_padding;
    for (char c : std::string_view(" \t\r\n\v\f"))
        kind[static_cast<unsigned char>(c)] = s_space;
    return kind;
}();

std::string quoted(unsigned char c) {
    if (c > ' ' && c < 0x7f)
        return std::string("'") + static_cast<char>(c) + "'";
    constexpr std::string_view digits = "0123456789ABCDEF";
    return std::string("byte 0x") + digits[c >> 4] + digits[c & 15];
}

[[noreturn]] void notBase64(const std::string& what, std::uint64_t offset) {
    HBL_THROW(PLQStreamError(ePLQStreamData,
                             "This is not Base64: " + what + " at offset " + std::to_string(offset) + "."),
              "PLQBase64InputStream::read");
}

} // namespace

struct PLQBase64InputStream::Buffers {
    std::array<char, 4096> text;
    std::size_t next = 0;             // text not yet decoded: from here
    std::size_t end = 0;              // to here
    std::array<char, 3072 + 3> bytes; // what one text buffer and an open group become
};

PLQBase64InputStream::PLQBase64InputStream(PLQInputStream& in)
    : PLQFilterInputStream(in) {}

PLQBase64InputStream::~PLQBase64InputStream() = default;

void PLQBase64InputStream::wrap(PLQInputStream& in) {
    PLQFilterInputStream::wrap(in);
    m_begin = m_end = 0;
    m_offset = 0;
    m_bits = 0;
    m_inGroup = m_padding = 0;
}

std::size_t PLQBase64InputStream::read(char* buffer, std::size_t count) {
    HBL_ASSERT(m_pWrapped);
    if (count == 0)
        return 0;
    while (m_begin == m_end)
        if (!fill())
            return endOfStream;
    const std::size_t given = std::min(count, m_end - m_begin);
    std::memcpy(buffer, m_buffers->bytes.data() + m_begin, given);
    m_begin += given;
    return given;
}

/// Decodes some more text.
/// @return false at the end of the data.
bool PLQBase64InputStream::fill() {
    if (!m_buffers)
        m_buffers.reset(hblNew<Buffers>(HBL_HERE));
    Buffers& b = *m_buffers;
    m_begin = m_end = 0;
    if (b.next == b.end) {
        const std::size_t got = m_pWrapped->read(b.text.data(), b.text.size());
        if (isEnd(got)) {
            if (m_inGroup != 0)
                notBase64("it ends within a group of four", m_offset);
            return false;
        }
        b.next = 0;
        b.end = got;
    }
    decode();
    return true;
}

/// Decodes the text in the buffer, up to what is not Base64; fails when it stands first, so that what
/// was decoded before it is handed out.
void PLQBase64InputStream::decode() {
    Buffers& b = *m_buffers;
    const auto kindAt = [&](std::size_t i) { return s_kind[static_cast<unsigned char>(b.text[i])]; };
    while (b.next < b.end) {
        if (m_inGroup == 0 && m_padding == 0 && b.end - b.next >= 4) {
            const std::uint8_t k0 = kindAt(b.next);
            const std::uint8_t k1 = kindAt(b.next + 1);
            const std::uint8_t k2 = kindAt(b.next + 2);
            const std::uint8_t k3 = kindAt(b.next + 3);
            if ((k0 | k1 | k2 | k3) < s_padding) { // all four are values, which take six bits
                b.bytes[m_end] = static_cast<char>(k0 << 2 | k1 >> 4);
                b.bytes[m_end + 1] = static_cast<char>(k1 << 4 | k2 >> 2);
                b.bytes[m_end + 2] = static_cast<char>(k2 << 6 | k3);
                m_end += 3;
                b.next += 4;
                m_offset += 4;
                continue;
            }
        }
        const std::uint8_t kind = kindAt(b.next);
        if (const char* reason = objection(kind)) {
            if (m_end == 0)
                notBase64(reason + quoted(static_cast<unsigned char>(b.text[b.next])), m_offset);
            return;
        }
        take(kind);
        ++b.next;
        ++m_offset;
    }
}

/// @return why a character of this kind cannot come next, or null when it can.
const char* PLQBase64InputStream::objection(std::uint8_t kind) const {
    if (kind == s_foreign)
        return "foreign ";
    if (kind == s_padding && m_inGroup < 2)
        return "misplaced padding ";
    if (kind < s_padding && m_padding > 0)
        return "data behind the padding, ";
    return nullptr;
}

/// Adds a character to the open group.
void PLQBase64InputStream::take(std::uint8_t kind) {
    if (kind == s_space)
        return;
    if (kind == s_padding) {
        ++m_padding;
        kind = 0;
    }
    m_bits = m_bits << 6 | kind;
    if (++m_inGroup < 4)
        return;
    m_inGroup = 0;
    for (unsigned byte = 0; byte < 3 - m_padding; ++byte)
        m_buffers->bytes[m_end++] = static_cast<char>(m_bits >> (16 - 8 * byte));
    m_bits = 0;
}
