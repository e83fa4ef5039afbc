#include "TavelTK/detail/PartDecoder.h"

#include "HBLCore/HBLFailure.h"
#include "TavelTK/detail/Headers.h"

#include <algorithm>
#include <cstring>

namespace mrl::detail {

namespace {

constexpr std::size_t s_pieceSize = 4096;
constexpr std::size_t s_maxBlanks = 998; // no line of a message is longer

constexpr int sextet(char c) {
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

constexpr int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

class Base64Decoder : public PartDecoder {
public:
    using PartDecoder::PartDecoder;

protected:
    void decode(std::string_view bytes, std::string& out) override {
        for (const char c : bytes)
            if (c != '\r' && c != '\n' && c != ' ' && c != '\t')
                take(c, out);
    }

    void end() override {
        if (m_count != 0)
            refuse("its Base64 ends within a group of four");
    }

private:
    void take(char c, std::string& out) {
        const int value = sextet(c);
        const bool isPadding = c == '=' && m_count >= 2;
        if ((value < 0 && !isPadding) || (m_padding != 0 && !isPadding))
            refuse("its Base64 contains a character out of place");
        m_bits = m_bits << 6 | static_cast<std::uint32_t>(std::max(value, 0));
        m_padding += isPadding;
        if (++m_count < 4)
            return;
        for (int byte = 0; byte < 3 - m_padding; ++byte)
            out += static_cast<char>(m_bits >> (16 - 8 * byte) & 0xff);
        m_bits = 0;
        m_count = 0; // a padding stays, so that nothing may follow it
    }

    std::uint32_t m_bits = 0;
    int m_count = 0; // characters of the group
    int m_padding = 0;
};

class QuotedPrintableDecoder : public PartDecoder {
public:
    using PartDecoder::PartDecoder;

protected:
    void decode(std::string_view bytes, std::string& out) override {
        for (const char c : bytes)
            take(c, out);
    }

    void end() override {
        if (!m_escape.empty() && m_escape != "=")
            refuse("its quoted-printable ends within an escape");
    }

private:
    void take(char c, std::string& out) {
        if (!m_escape.empty())
            return takeEscaped(c, out);
        if (c == ' ' || c == '\t') {
            // Blanks at the end of a line were put there on the way.
            m_blanks += c;
            if (m_blanks.size() > s_maxBlanks)
                refuse("its quoted-printable has a line that is too long");
            return;
        }
        if (c != '\r' && c != '\n')
            out += m_blanks;
        m_blanks.clear();
        if (c == '=')
            m_escape = "=";
        else
            out += c;
    }

    void takeEscaped(char c, std::string& out) {
        const bool isBreaking = m_escape != "=" && hexDigit(m_escape[1]) < 0;
        if (c == '\n') { // the line goes on in the next one
            if (m_escape.size() > 1 && !isBreaking)
                refuse("its quoted-printable contains an escape of one digit");
            m_escape.clear();
        } else if (c == ' ' || c == '\t' || c == '\r') {
            if (m_escape.size() > 1 && !isBreaking)
                refuse("its quoted-printable contains an escape of one digit");
            m_escape = "=\r";
        } else if (hexDigit(c) < 0 || isBreaking) {
            refuse("its quoted-printable contains an escape that is none");
        } else if (m_escape.size() == 1) {
            m_escape += c;
        } else {
            out += static_cast<char>(hexDigit(m_escape[1]) * 16 + hexDigit(c));
            m_escape.clear();
        }
    }

    std::string m_escape; // "=" and what followed it; "=\r" within a soft break
    std::string m_blanks;
};

} // namespace

std::unique_ptr<PartDecoder> PartDecoder::ofTransferEncoding(std::string_view coding,
                                                             std::unique_ptr<ByteSource> raw,
                                                             RefuseCoding refuse) {
    if (sameText(coding, "base64"))
        return std::make_unique<Base64Decoder>(std::move(raw), std::move(refuse));
    if (sameText(coding, "quoted-printable"))
        return std::make_unique<QuotedPrintableDecoder>(std::move(raw), std::move(refuse));
    return nullptr;
}

void PartDecoder::refuse(const std::string& cause, bool isTooLarge) const {
    m_refuse(isTooLarge, cause);
    hblAssertFailed("HBL_ASSERT(refused);", HBL_HERE);
}

std::size_t PartDecoder::read(char* buffer, std::size_t size) {
    while (m_begin == m_out.size()) {
        if (m_isOver)
            return 0;
        m_out.clear();
        m_begin = 0;
        char piece[s_pieceSize];
        const std::size_t count = m_raw->read(piece, sizeof piece);
        m_isOver = count == 0;
        if (m_isOver)
            end();
        else
            decode({piece, count}, m_out);
    }
    const std::size_t count = std::min(size, m_out.size() - m_begin);
    std::memcpy(buffer, m_out.data() + m_begin, count);
    m_begin += count;
    return count;
}

} // namespace mrl::detail
