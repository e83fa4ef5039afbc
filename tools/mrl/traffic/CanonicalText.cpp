#include "traffic/CanonicalText.h"

#include "HBLIDOM/HBLIDOM_Attr.h"
#include "HBLIDOM/HBLIDOM_Element.h"
#include "HBLIDOM/HBLIDOM_Helper.h"
#include "HBLIDOM/HBLIDOM_NamedNodeMap.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace mrl::tool {

namespace {

constexpr const char* XMLNS = "http://www.w3.org/2000/xmlns/";
constexpr const char* LEFT_OUT = "(left out)";

/// The namespaces that have a short name here, whatever prefix a document uses.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> SHORT_NAMES = {{
    {"http://schemas.xmlsoap.org/soap/envelope/", "SOAP-ENV"},
    {"http://schemas.xmlsoap.org/soap/encoding/", "SOAP-ENC"},
    {"http://www.w3.org/2001/XMLSchema-instance", "xsi"},
    {"http://www.w3.org/2001/XMLSchema", "xs"},
    {"http://developer.vantor.example/schemas/tavel/3/", "bus"},
}};

std::string qualified(std::string_view uri, const std::string& localName) {
    if (uri.empty())
        return localName;
    for (const auto& [known, name] : SHORT_NAMES)
        if (known == uri)
            return std::string(name) + ":" + localName;
    return "{" + std::string(uri) + "}" + localName;
}

void appendEscaped(std::string& out, std::string_view text, bool isAttribute) {
    for (const char c : text)
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '\n': out += isAttribute ? "&#10;" : "\n"; break;
        case '"': out += isAttribute ? "&quot;" : "\""; break;
        default: out += c;
        }
}

std::string namespaceOf(HBLIDOM_Node at, const std::string& prefix) {
    const I18NString name = prefix.empty() ? I18NString("xmlns") : I18NString("xmlns:" + prefix);
    for (; at.isNull() == 0 && at.getNodeType() == HBLIDOM_Node::ELEMENT_NODE; at = at.getParentNode())
        if (const std::string uri = HBLIDOM_Element(at).getAttribute(name).toUtf8(); !uri.empty())
            return uri;
    return {};
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == text.npos;
}

class Writer {
public:
    explicit Writer(const PathRules* volatilePlaces)
        : m_volatile(volatilePlaces) {}

    std::vector<std::string> take() { return std::move(m_lines); }

    void element(const HBLIDOM_Element& element) {
        m_path.push_back(element.getLocalName().toUtf8());
        const std::string name = qualified(element.getNamespaceURI().toUtf8(), m_path.back());
        std::string line = std::string(2 * (m_path.size() - 1), ' ') + "<" + name + attributes(element);
        const bool isLeftOut = m_volatile != nullptr && m_volatile->matchElement(m_path);
        const bool hasElements = !isLeftOut && hasElementsIn(element);
        const std::string text = isLeftOut ? LEFT_OUT : HBLIDOM_Helper::getElementText(element).toUtf8();
        if (!hasElements) {
            if (text.empty()) {
                m_lines.push_back(line + "/>");
            } else {
                line += ">";
                appendEscaped(line, text, false);
                addLines(line + "</" + name + ">");
            }
        } else {
            m_lines.push_back(line + ">");
            children(element);
            m_lines.push_back(std::string(2 * (m_path.size() - 1), ' ') + "</" + name + ">");
        }
        m_path.pop_back();
    }

private:
    static bool hasElementsIn(const HBLIDOM_Element& element) {
        for (HBLIDOM_Node node = element.getFirstChild(); node.isNull() == 0; node = node.getNextSibling())
            if (node.getNodeType() == HBLIDOM_Node::ELEMENT_NODE)
                return true;
        return false;
    }

    void children(const HBLIDOM_Element& parent) {
        for (HBLIDOM_Node node = parent.getFirstChild(); node.isNull() == 0; node = node.getNextSibling()) {
            const auto type = node.getNodeType();
            if (type == HBLIDOM_Node::ELEMENT_NODE) {
                element(HBLIDOM_Element(node));
            } else if (type == HBLIDOM_Node::TEXT_NODE || type == HBLIDOM_Node::CDATA_SECTION_NODE) {
                if (const std::string text = node.getNodeValue().toUtf8(); !isBlank(text)) {
                    std::string line(2 * m_path.size(), ' ');
                    appendEscaped(line, text, false);
                    addLines(line);
                }
            }
        }
    }

    /// The value of an attribute that names a type, without the prefix of the document's choice.
    static std::string resolved(const HBLIDOM_Element& element, const std::string& value) {
        const std::size_t colon = value.find(':');
        const std::string prefix = value.substr(0, colon == value.npos ? 0 : colon);
        const std::string uri = namespaceOf(element, prefix);
        return uri.empty() ? value : qualified(uri, value.substr(colon == value.npos ? 0 : colon + 1));
    }

    std::string attributes(const HBLIDOM_Element& element) const {
        std::vector<std::pair<std::string, std::string>> sorted;
        const HBLIDOM_NamedNodeMap map = element.getAttributes();
        for (std::size_t i = 0; i < map.getLength(); ++i) {
            const HBLIDOM_Node attribute = map.item(i);
            const std::string uri = attribute.getNamespaceURI().toUtf8();
            const std::string local = attribute.getLocalName().toUtf8();
            if (uri == XMLNS || local == "xmlns")
                continue;
            const std::string name = qualified(uri, local);
            std::string value = attribute.getNodeValue().toUtf8();
            if (name == "xsi:type" || name == "SOAP-ENC:arrayType")
                value = resolved(element, value);
            if (m_volatile != nullptr && m_volatile->matchAttribute(m_path, local))
                value = LEFT_OUT;
            sorted.emplace_back(name, value);
        }
        std::ranges::sort(sorted);
        std::string text;
        for (const auto& [name, value] : sorted) {
            text += " " + name + "=\"";
            appendEscaped(text, value, true);
            text += '"';
        }
        return text;
    }

    void addLines(std::string_view text) {
        for (std::size_t end = 0; end != text.npos;) {
            end = text.find('\n');
            m_lines.emplace_back(text.substr(0, end));
            text.remove_prefix(end == text.npos ? 0 : end + 1);
        }
    }

    const PathRules* m_volatile; // null for none
    std::vector<std::string> m_path;
    std::vector<std::string> m_lines;
};

} // namespace

std::vector<std::string> canonicalLines(const HBLIDOM_Node& document, const PathRules* volatilePlaces) {
    Writer writer(volatilePlaces);
    for (HBLIDOM_Node node = document.getFirstChild(); node.isNull() == 0; node = node.getNextSibling())
        if (node.getNodeType() == HBLIDOM_Node::ELEMENT_NODE)
            writer.element(HBLIDOM_Element(node));
    return writer.take();
}

std::string printable(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        // U+0080 to U+009F are control characters too, C2 80 to C2 9F in UTF-8.
        const bool isWide =
            c == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
        if ((c < 0x20 && c != '\t') || c == 0x7F || isWide) {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02x",
                          isWide ? static_cast<unsigned char>(text[++i]) : static_cast<unsigned>(c));
            out += code;
        } else {
            out += text[i];
        }
    }
    return out;
}

} // namespace mrl::tool
