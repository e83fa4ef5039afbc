#include "logipf2/detail/JsonLine.h"

#include "HBLCore/I18NString.h"
#include "logipf2/LOGObject.h"
#include "logipf2/detail/LogClock.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <type_traits>
#include <unistd.h>
#include <utility>

namespace mrl::detail {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;
constexpr int GAP_LEVEL = 50000;

constexpr bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Characters beyond ASCII that end a line for some readers, or that make a terminal show another order.
constexpr bool isTreacherous(char32_t c) {
    return (c >= 0x80 && c <= 0x9F) || (c >= 0x200E && c <= 0x200F) || (c >= 0x2028 && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

void appendEscape(std::string& out, char32_t c) {
    constexpr std::string_view digits = "0123456789abcdef";
    out += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) {
        out += digits[(c >> shift) & 0xF];
    }
}

/// How each character of ASCII is written: as itself, as the letter behind a backslash, or by its number.
constexpr char NUMBERED = 0;
constexpr std::array<char, 0x80> ASCII_FORMS = [] {
    std::array<char, 0x80> forms{};
    for (std::size_t c = 0x20; c < 0x7F; ++c) {
        forms[c] = static_cast<char>(c);
    }
    forms['\b'] = 'b';
    forms['\f'] = 'f';
    forms['\n'] = 'n';
    forms['\r'] = 'r';
    forms['\t'] = 't';
    return forms;
}();

/// Writes the front of `text` up to the first character that goes by its number or is not ASCII, to `out`,
/// which has room for two characters each, and moves `out` behind it.
/// @return the units taken.
template <class Unit>
std::size_t putAscii(std::basic_string_view<Unit> text, char*& out) {
    char* to = out;
    std::size_t taken = 0;
    for (; taken < text.size(); ++taken) {
        const auto unit = static_cast<std::make_unsigned_t<Unit>>(text[taken]);
        const char form = unit < ASCII_FORMS.size() ? ASCII_FORMS[unit] : NUMBERED;
        if (form == NUMBERED) {
            break;
        }
        if (form != static_cast<char>(unit) || form == '"' || form == '\\') {
            *to++ = '\\';
        }
        *to++ = form;
    }
    out = to;
    return taken;
}

void appendUtf8(std::string& out, char32_t c) {
    const auto put = [&](char32_t byte) { out += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (c < 0x800) {
        put(0xC0 | (c >> 6));
    } else {
        if (c < 0x10000) {
            put(0xE0 | (c >> 12));
        } else {
            put(0xF0 | (c >> 18));
            put(0x80 | ((c >> 12) & 0x3F));
        }
        put(0x80 | ((c >> 6) & 0x3F));
    }
    put(0x80 | (c & 0x3F));
}

/// Appends the first character of `text`, which is none for putAscii.
/// @return its units.
std::size_t appendOther(std::string& out, std::u16string_view text) {
    char32_t c = text[0];
    std::size_t units = 1;
    if (isHighSurrogate(c) && text.size() > 1 && isLowSurrogate(text[1])) {
        c = 0x10000 + ((c - 0xD800) << 10) + (text[1] - 0xDC00u);
        units = 2;
    } else if (isHighSurrogate(c) || isLowSurrogate(c)) {
        c = REPLACEMENT;
    }
    if (c < 0x80 || isTreacherous(c)) {
        appendEscape(out, c);
    } else {
        appendUtf8(out, c);
    }
    return units;
}

/// The same for a text that is all ASCII.
std::size_t appendOther(std::string& out, std::string_view text) {
    appendEscape(out, static_cast<unsigned char>(text[0]));
    return 1;
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// "2026-11-21T06:05:04.123456Z", without the C library's conversions: they lock, and read the time zone.
std::string timeText(std::int64_t microseconds) {
    using namespace std::chrono;
    const sys_time<std::chrono::microseconds> time{std::chrono::microseconds(microseconds)};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss<std::chrono::microseconds> clock(time - day);
    std::string text = "0000-00-00T00:00:00.000000Z";
    const auto put = [&text](std::size_t last, std::int64_t value) { // over the zeros that end there
        for (; value > 0; value /= 10) {
            text[last--] = static_cast<char>('0' + value % 10);
        }
    };
    put(3, static_cast<int>(date.year()));
    put(6, static_cast<unsigned>(date.month()));
    put(9, static_cast<unsigned>(date.day()));
    put(12, clock.hours().count());
    put(15, clock.minutes().count());
    put(18, clock.seconds().count());
    put(25, clock.subseconds().count());
    return text;
}

void head(JsonLine& line, std::string_view logger, std::string_view type, int level) {
    line.utf8("time", timeText(logClock().wallMicroseconds()));
    line.utf8("logger", logger);
    line.utf8("type", type);
    line.number("level", level);
    line.number("process", getpid());
    line.number("thread", gettid());
}

} // namespace

JsonLine::JsonLine() {
    m_line.reserve(512);
}

void JsonLine::name(const char* name) {
    if (!std::exchange(m_first, false)) {
        m_line += ',';
    }
    m_line += '"';
    m_line += name;
    m_line += "\":";
}

void JsonLine::text(const char* field, const I18NString& value) {
    name(field);
    quoted(value.view());
}

void JsonLine::utf8(const char* field, std::string_view value) {
    if (isAscii(value)) {
        name(field);
        quoted(value);
    } else {
        text(field, I18NString(value));
    }
}

void JsonLine::number(const char* field, std::int64_t value) {
    name(field);
    m_line += std::to_string(value);
}

void JsonLine::beginGroup(const char* group) {
    name(group);
    m_line += '{';
    m_first = true;
}

void JsonLine::endGroup() {
    m_line += '}';
    m_first = false;
}

std::string JsonLine::finish() {
    m_line += "}\n";
    return std::move(m_line);
}

template <class Unit>
void JsonLine::quoted(std::basic_string_view<Unit> text) {
    m_line.reserve(m_line.size() + text.size() + text.size() / 8 + 16);
    m_line += '"';
    constexpr std::size_t most = 256;
    std::array<char, 2 * most> piece;
    while (!text.empty()) {
        char* end = piece.data();
        const std::size_t taken = putAscii(text.substr(0, most), end);
        m_line.append(piece.data(), end);
        text.remove_prefix(taken);
        if (taken < most && !text.empty()) {
            text.remove_prefix(appendOther(m_line, text));
        }
    }
    m_line += '"';
}

std::string lineOf(std::string_view loggerName, const LOGObject& record) {
    JsonLine line;
    head(line, loggerName, record.getIndicationType(), record.getLevel());
    record.getFields(line);
    return line.finish();
}

std::string lineOfGap(std::int64_t lost, std::string_view reason) {
    JsonLine line;
    head(line, "", "LogGap", GAP_LEVEL);
    line.number("lost", lost);
    line.utf8("reason", reason);
    return line.finish();
}

} // namespace mrl::detail
