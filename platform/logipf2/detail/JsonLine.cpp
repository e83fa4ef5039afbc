#include "logipf2/detail/JsonLine.h"

#include "HBLCore/I18NString.h"
#include "logipf2/LOGObject.h"
#include "logipf2/detail/LogClock.h"

#include <array>
#include <chrono>
#include <cstdio>
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

/// A character of ASCII that is not written as it is.
void appendAscii(std::string& out, char c) {
    switch (c) {
    case '"': out += "\\\""; break;
    case '\\': out += "\\\\"; break;
    case '\b': out += "\\b"; break;
    case '\f': out += "\\f"; break;
    case '\n': out += "\\n"; break;
    case '\r': out += "\\r"; break;
    case '\t': out += "\\t"; break;
    default: appendEscape(out, static_cast<unsigned char>(c));
    }
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

constexpr bool isPlain(char16_t unit) {
    return unit >= 0x20 && unit < 0x7F && unit != u'"' && unit != u'\\';
}

/// How many units at the front are written as they are: all but a few of what is logged.
std::size_t plainRun(std::u16string_view text) {
    std::size_t length = 0;
    while (length < text.size() && isPlain(text[length])) {
        ++length;
    }
    return length;
}

/// Appends the first character of `text`, which is not a plain one.
/// @return its units.
std::size_t appendOther(std::string& out, std::u16string_view text) {
    char32_t c = text[0];
    std::size_t units = 1;
    if (c < 0x80) {
        appendAscii(out, static_cast<char>(c));
        return units;
    }
    if (isHighSurrogate(c) && text.size() > 1 && isLowSurrogate(text[1])) {
        c = 0x10000 + ((c - 0xD800) << 10) + (text[1] - 0xDC00u);
        units = 2;
    } else if (isHighSurrogate(c) || isLowSurrogate(c)) {
        c = REPLACEMENT;
    }
    if (isTreacherous(c)) {
        appendEscape(out, c);
    } else {
        appendUtf8(out, c);
    }
    return units;
}

/// "2026-11-21T06:05:04.123456Z", without the C library's conversions: they lock, and read the time zone.
std::string timeText(std::int64_t microseconds) {
    using namespace std::chrono;
    const sys_time<std::chrono::microseconds> time{std::chrono::microseconds(microseconds)};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss<std::chrono::microseconds> clock(time - day);
    std::array<char, 40> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%06dZ", static_cast<int>(date.year()),
        static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
        static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
    return {text.data(), static_cast<std::size_t>(length)};
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
    text(field, I18NString(value));
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

void JsonLine::quoted(std::u16string_view text) {
    m_line.reserve(m_line.size() + text.size() + text.size() / 8 + 16);
    m_line += '"';
    for (std::size_t i = 0; i < text.size();) {
        if (const std::size_t plain = plainRun(text.substr(i)); plain > 0) {
            std::size_t at = m_line.size();
            m_line.resize(at + plain);
            for (const char16_t unit : text.substr(i, plain)) {
                m_line[at++] = static_cast<char>(unit);
            }
            i += plain;
        } else {
            i += appendOther(m_line, text.substr(i));
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
