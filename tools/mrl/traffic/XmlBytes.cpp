#include "traffic/XmlBytes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace mrl::tool {

namespace {

constexpr std::array<std::pair<std::string_view, char>, 5> ENTITIES = {
    {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
constexpr std::string_view BLANKS = " \t\r\n";

void appendUtf8(std::string& out, unsigned long code) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    } else if (code < 0x110000) {
        out += static_cast<char>(0xF0U | (code >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

/// @return false for what is no reference that XML knows by itself.
bool appendReference(std::string& out, std::string_view name) {
    if (name.starts_with('#')) {
        const bool isHex = name.starts_with("#x");
        const char* const begin = name.data() + (isHex ? 2 : 1);
        unsigned long code = 0;
        const auto result = std::from_chars(begin, name.data() + name.size(), code, isHex ? 16 : 10);
        appendUtf8(out, code);
        return result.ec == std::errc();
    }
    const auto* const entity =
        std::ranges::find_if(ENTITIES, [&](const auto& known) { return known.first == name; });
    if (entity == ENTITIES.end())
        return false;
    out += entity->second;
    return true;
}

void appendDecoded(std::string& out, std::string_view raw) {
    while (!raw.empty()) {
        const std::size_t at = std::min(raw.find('&'), raw.size());
        out += raw.substr(0, at);
        raw.remove_prefix(at);
        const std::size_t end = raw.find(';');
        if (!raw.empty() && end != raw.npos && end < 12 && appendReference(out, raw.substr(1, end - 1))) {
            raw.remove_prefix(end + 1);
        } else if (!raw.empty()) {
            out += raw.front();
            raw.remove_prefix(1);
        }
    }
}

std::string localName(std::string_view name) {
    return std::string(name.substr(name.find(':') + 1)); // the whole without a colon
}

class Walk {
public:
    Walk(std::string_view bytes, const std::function<void(const XmlValue&)>& tell)
        : m_bytes(bytes)
        , m_tell(tell) {}

    void run() {
        while (m_at < m_bytes.size()) {
            if (m_bytes[m_at] != '<')
                text();
            else if (aside("<!--", "-->") || aside("<?", "?>") || cdata() || skip("<!", ">"))
                continue;
            else if (m_bytes.substr(m_at).starts_with("</"))
                endTag();
            else
                startTag();
        }
        endOfText();
    }

private:
    bool skip(std::string_view open, std::string_view close) {
        if (!m_bytes.substr(m_at).starts_with(open))
            return false;
        const std::size_t end = m_bytes.find(close, m_at + open.size());
        m_at = end == m_bytes.npos ? m_bytes.size() : end + close.size();
        return true;
    }

    /// A comment or an instruction, which nobody reads and anything may stand in.
    bool aside(std::string_view open, std::string_view close) {
        if (!m_bytes.substr(m_at).starts_with(open))
            return false;
        endOfText();
        const std::size_t begin = m_at + open.size();
        skip(open, close);
        const std::size_t end = m_bytes.substr(0, m_at).ends_with(close) ? m_at - close.size() : m_at;
        if (begin < end)
            m_tell({begin, end, std::string(m_bytes.substr(begin, end - begin)), m_path, "#aside", {}});
        beginText();
        return true;
    }

    bool cdata() {
        constexpr std::string_view open = "<![CDATA[";
        if (!m_bytes.substr(m_at).starts_with(open))
            return false;
        const std::size_t begin = m_at;
        skip(open, "]]>");
        const std::string_view whole = m_bytes.substr(begin + open.size(), m_at - begin - open.size());
        m_text += whole.ends_with("]]>") ? whole.substr(0, whole.size() - 3) : whole;
        m_textEnd = m_at;
        return true;
    }

    void text() {
        const std::size_t end = std::min(m_bytes.find('<', m_at), m_bytes.size());
        appendDecoded(m_text, m_bytes.substr(m_at, end - m_at));
        m_at = m_textEnd = end;
    }

    /// What stood between the last tag and here, with CDATA sections.
    void endOfText() {
        if (m_text.find_first_not_of(BLANKS) != m_text.npos && !m_path.empty()) {
            if (m_path.back() == "name" && m_names.size() > 1)
                m_names[m_names.size() - 2] = m_text;
            const std::string_view sibling =
                m_names.size() > 1 ? std::string_view(m_names[m_names.size() - 2]) : std::string_view();
            m_tell({m_textBegin, m_textEnd, m_text, m_path, {}, sibling});
        }
        m_text.clear();
    }

    void beginText() { m_textBegin = m_textEnd = m_at; }

    void endTag() {
        endOfText();
        const std::size_t end = std::min(m_bytes.find('>', m_at), m_bytes.size());
        m_at = std::min(end + 1, m_bytes.size());
        if (!m_path.empty()) {
            m_path.pop_back();
            m_names.pop_back();
        }
        beginText();
    }

    void startTag() {
        endOfText();
        ++m_at;
        const std::size_t nameEnd = std::min(m_bytes.find_first_of(" \t\r\n/>", m_at), m_bytes.size());
        m_path.push_back(localName(m_bytes.substr(m_at, nameEnd - m_at)));
        m_names.emplace_back();
        m_at = nameEnd;
        const bool isEmpty = attributes();
        if (isEmpty) {
            m_path.pop_back();
            m_names.pop_back();
        }
        beginText();
    }

    /// Up to the end of the tag.
    /// @return whether the element is empty.
    bool attributes() {
        bool isEmpty = false;
        while (m_at < m_bytes.size()) {
            const char c = m_bytes[m_at];
            if (c == '>') {
                ++m_at;
                return isEmpty;
            }
            isEmpty = c == '/';
            if (isEmpty || BLANKS.find(c) != BLANKS.npos)
                ++m_at;
            else
                attribute();
        }
        return isEmpty;
    }

    void attribute() {
        const std::size_t equals = m_bytes.find_first_of("=>", m_at);
        if (equals == m_bytes.npos || m_bytes[equals] == '>') {
            m_at = std::min(equals, m_bytes.size());
            return;
        }
        std::string_view name = m_bytes.substr(m_at, equals - m_at);
        name = name.substr(0, name.find_first_of(BLANKS));
        const std::size_t open = m_bytes.find_first_of("\"'", equals);
        if (open == m_bytes.npos) {
            m_at = m_bytes.size();
            return;
        }
        const std::size_t close = std::min(m_bytes.find(m_bytes[open], open + 1), m_bytes.size());
        m_at = std::min(close + 1, m_bytes.size());
        if (name == "xmlns" || name.starts_with("xmlns:"))
            return; // part of the names
        std::string value;
        appendDecoded(value, m_bytes.substr(open + 1, close - open - 1));
        m_tell({open + 1, close, std::move(value), m_path, localName(name), {}});
    }

    std::string_view m_bytes;
    const std::function<void(const XmlValue&)>& m_tell;
    std::size_t m_at = 0;
    std::vector<std::string> m_path;
    std::vector<std::string> m_names; // what the child "name" of each open element says
    std::string m_text;
    std::size_t m_textBegin = 0;
    std::size_t m_textEnd = 0;
};

} // namespace

void walkXml(std::string_view bytes, const std::function<void(const XmlValue&)>& tell) {
    Walk(bytes, tell).run();
}

bool looksLikeXml(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    const std::size_t begin = bytes.find_first_not_of(BLANKS);
    return begin != bytes.npos && bytes[begin] == '<' && bytes.substr(begin, 64).find('\0') == bytes.npos;
}

std::string xmlEscaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        const auto* const entity =
            std::ranges::find_if(ENTITIES, [&](const auto& known) { return known.second == c; });
        if (entity == ENTITIES.end())
            out += c;
        else
            out.append("&").append(entity->first).append(";");
    }
    return out;
}

} // namespace mrl::tool
