#include "PLQStreams/PLQXmlEncodeOutputStream.h"

#include "HBLCore/HBLFailure.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

namespace {

// What to do with a byte: go on, look at the whole sequence that it begins, or write a replacement.
enum Kind : std::uint8_t {
    plain,
    sequence,
    replacements,
    amp = replacements,
    lt,
    gt,
    quot,
    apos,
    cr,
    illegal
};

constexpr std::string_view s_replacement[] = {"&amp;",  "&lt;",  "&gt;",        "&quot;",
                                              "&apos;", "&#13;", "\xEF\xBF\xBD"};
constexpr std::string_view s_illegal = s_replacement[illegal - replacements];

constexpr std::array<Kind, 256> s_kind = [] {
    std::array<Kind, 256> kind{}; // plain
    for (unsigned c = 0; c < 0x20; ++c)
        kind[c] = illegal;
    for (unsigned c = 0x80; c < 0x100; ++c)
        kind[c] = sequence;
    kind['\t'] = kind['\n'] = plain;
    kind['\r'] = cr;
    kind['&'] = amp;
    kind['<'] = lt;
    kind['>'] = gt;
    kind['"'] = quot;
    kind['\''] = apos;
    return kind;
}();

constexpr Kind kindOf(char c) {
    return s_kind[static_cast<unsigned char>(c)];
}

struct Sequence {
    enum class State { legal, illegal, cut } state;
    std::size_t length; // bytes of the character, or of what one U+FFFD stands for
};

/// Looks at the UTF-8 sequence that begins at `p`, which is before `end` and not ASCII.
constexpr Sequence sequenceAt(const char* p, const char* end) {
    const auto byte = [p](std::size_t i) { return static_cast<unsigned char>(p[i]); };
    const unsigned lead = byte(0);
    std::size_t length = 0;
    unsigned low = 0x80; // bounds of the second byte, which keep out surrogates and needless length
    unsigned high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0)
            low = 0xA0;
        else if (lead == 0xED)
            high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0)
            low = 0x90;
        else if (lead == 0xF4)
            high = 0x8F;
    } else {
        return {Sequence::State::illegal, 1};
    }
    for (std::size_t i = 1; i < length; ++i, low = 0x80, high = 0xBF) {
        if (p + i == end)
            return {Sequence::State::cut, i};
        if (byte(i) < low || byte(i) > high)
            return {Sequence::State::illegal, i};
    }
    if (lead == 0xEF && byte(1) == 0xBF && byte(2) >= 0xBE) // U+FFFE and U+FFFF
        return {Sequence::State::illegal, 3};
    return {Sequence::State::legal, length};
}

void put(PLQOutputStream& out, std::string_view text) {
    if (!text.empty())
        out.write(text.data(), text.size());
}

} // namespace

PLQXmlEncodeOutputStream::PLQXmlEncodeOutputStream(PLQOutputStream& downstream)
    : PLQFilterOutputStream(downstream) {}

PLQXmlEncodeOutputStream::~PLQXmlEncodeOutputStream() {
    try {
        finish();
    } catch (...) { // documented: only an explicit unWrap() or close() reports
    }
}

void PLQXmlEncodeOutputStream::write(const char* data, std::size_t length) {
    HBL_ASSERT(p_downstream);
    const char* const end = data + length;
    const char* run = completeHeld(data, end); // what goes out unchanged begins here
    const char* p = run;
    while (true) {
        while (p != end && kindOf(*p) == plain)
            ++p;
        if (p == end)
            break;
        const Kind kind = kindOf(*p);
        if (kind == sequence) {
            const Sequence found = sequenceAt(p, end);
            if (found.state == Sequence::State::legal) {
                p += found.length;
                continue;
            }
            put(*p_downstream, {run, p});
            if (found.state == Sequence::State::cut) {
                m_heldLength = static_cast<std::size_t>(std::copy(p, end, m_held.begin()) - m_held.begin());
                return;
            }
            put(*p_downstream, s_illegal);
            p += found.length;
        } else {
            put(*p_downstream, {run, p});
            put(*p_downstream, s_replacement[kind - replacements]);
            ++p;
        }
        run = p;
    }
    put(*p_downstream, {run, p});
}

void PLQXmlEncodeOutputStream::close() {
    finish();
    PLQFilterOutputStream::close();
}

void PLQXmlEncodeOutputStream::wrap(PLQOutputStream& downstream) {
    finish();
    PLQFilterOutputStream::wrap(downstream);
}

void PLQXmlEncodeOutputStream::unWrap() {
    finish();
    PLQFilterOutputStream::unWrap();
}

/// Adds to the character that was cut by the last write, until it is whole or turns out broken.
/// @return where the rest of the data begins.
const char* PLQXmlEncodeOutputStream::completeHeld(const char* data, const char* end) {
    while (m_heldLength > 0 && data != end) {
        m_held[m_heldLength] = *data;
        const Sequence found = sequenceAt(m_held.data(), m_held.data() + m_heldLength + 1);
        if (found.state == Sequence::State::cut) {
            ++m_heldLength;
            ++data;
            continue;
        }
        if (found.length == m_heldLength + 1) // else the new byte begins something of its own
            ++data;
        const std::string_view whole(m_held.data(), found.length);
        m_heldLength = 0;
        put(*p_downstream, found.state == Sequence::State::legal ? whole : s_illegal);
    }
    return data;
}

void PLQXmlEncodeOutputStream::finish() {
    if (p_downstream && std::exchange(m_heldLength, 0) > 0)
        put(*p_downstream, s_illegal);
}
