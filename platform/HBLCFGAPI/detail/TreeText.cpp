#include "HBLCFGAPI/detail/TreeText.h"

#include "HBLCFGAPI/HBLConfigurationNames.h"
#include "HBLCFGAPI/detail/ConfigurationText.h"
#include "HBLCore/detail/XmlText.h"
#include "HBLIDOM/HBLIDOM_Helper.h"
#include "HBLIDOM/HBLIDOM_NamedNodeMap.h"

#include <algorithm>
#include <ranges>

namespace mrl::detail {

namespace {

constexpr std::string_view QZN = "qzn";
constexpr std::string_view XMLNS = "xmlns";
constexpr const char* XSI_NAMESPACE = "http://www.w3.org/2001/XMLSchema-instance";

bool isOfConfiguration(const HBLIDOM_Node& node) {
    return node.getNamespaceURI() == HBLConfigurationNames::s_namespace;
}

bool isDeclaration(const std::string& attribute) {
    return attribute == XMLNS || attribute.starts_with("xmlns:");
}

/// A value or an item that is a text: white space around it does not count.
bool hasPlainText(const HBLIDOM_Element& element) {
    if (!isOfConfiguration(element) || (HBLIDOM_Helper::matchLocalName(element, "value") == 0 &&
                                        HBLIDOM_Helper::matchLocalName(element, "item") == 0)) {
        return false;
    }
    HBLIDOM_Node child = element.getFirstChild();
    while (child.isNull() == 0 && child.getNodeType() != HBLIDOM_Node::ELEMENT_NODE) {
        child = child.getNextSibling();
    }
    return child.isNull() != 0;
}

std::string prefixIn(const std::string& name) {
    const auto colon = name.find(':');
    return colon == std::string::npos ? std::string() : name.substr(0, colon);
}

} // namespace

std::string TreeText::write(const HBLIDOM_Element& value) {
    m_text.clear();
    m_bindings = {{"", ""}, {"xml", "http://www.w3.org/XML/1998/namespace"}};
    element(value, "qzn:value", 1);
    return std::move(m_text);
}

void TreeText::element(const HBLIDOM_Element& element, const std::string& tag, unsigned depth) {
    if (depth > m_maximumDepth) {
        throw Refusal{"expected elements at most " + std::to_string(m_maximumDepth) + " deep"};
    }
    const std::size_t outer = m_bindings.size();
    m_text += '<' + tag;
    if (depth == 1) {
        declare(std::string(QZN), HBLConfigurationNames::s_namespace);
    } else {
        declareFor(element, false);
    }
    attributes(element);
    content(element, tag, depth);
    m_bindings.resize(outer);
}

void TreeText::attributes(const HBLIDOM_Element& element) {
    const HBLIDOM_NamedNodeMap map = element.getAttributes();
    for (std::size_t i = 0; i < map.getLength(); ++i) {
        const HBLIDOM_Node attribute = map.item(i);
        if (!isDeclaration(attribute.getNodeName().toUtf8())) {
            declareFor(attribute, true);
            m_text += ' ' + tagOf(attribute) + "=\"";
            appendXmlText(m_text, attribute.getNodeValue().toUtf8());
            m_text += '"';
        }
    }
}

void TreeText::content(const HBLIDOM_Element& element, const std::string& tag, unsigned depth) {
    HBLIDOM_Node child = element.getFirstChild();
    if (child.isNull() != 0) {
        m_text += "/>";
        return;
    }
    m_text += '>';
    if (hasPlainText(element)) {
        appendXmlText(m_text, trimmed(HBLIDOM_Helper::getElementText(element).toUtf8()));
        m_text += "</" + tag + '>';
        return;
    }
    for (; child.isNull() == 0; child = child.getNextSibling()) {
        switch (child.getNodeType()) {
        case HBLIDOM_Node::ELEMENT_NODE:
            this->element(HBLIDOM_Element(child), tagOf(child), depth + 1);
            break;
        case HBLIDOM_Node::TEXT_NODE:
        case HBLIDOM_Node::CDATA_SECTION_NODE: appendXmlText(m_text, child.getNodeValue().toUtf8()); break;
        default: break;
        }
    }
    m_text += "</" + tag + '>';
}

std::string TreeText::tagOf(const HBLIDOM_Node& node) const {
    return isOfConfiguration(node) ? "qzn:" + node.getLocalName().toUtf8() : node.getNodeName().toUtf8();
}

void TreeText::declareFor(const HBLIDOM_Node& node, bool isAttribute) {
    if (isOfConfiguration(node)) {
        return; // declared at the root
    }
    const std::string name = node.getNodeName().toUtf8();
    const std::string prefix = prefixIn(name);
    std::string uri = node.getNamespaceURI().toUtf8();
    if (prefix.empty() && isAttribute) {
        return; // never in a namespace
    }
    if (uri.empty() && prefix == "xsi") {
        uri = XSI_NAMESPACE; // set by hand, by its whole name
    }
    if (prefix == QZN || (uri.empty() && !prefix.empty())) {
        throw Refusal{"expected the prefix of \"" + name + "\" to be declared" +
                      (prefix == QZN ? std::string(", \"qzn\" only as ") + HBLConfigurationNames::s_namespace
                                     : std::string())};
    }
    const std::string* const bound = uriOf(prefix);
    if (bound == nullptr || *bound != uri) {
        declare(prefix, uri);
    }
}

void TreeText::declare(const std::string& prefix, const std::string& uri) {
    m_bindings.push_back({prefix, uri});
    m_text += prefix.empty() ? " xmlns=\"" : " xmlns:" + prefix + "=\"";
    appendXmlText(m_text, uri);
    m_text += '"';
}

const std::string* TreeText::uriOf(std::string_view prefix) const {
    const auto innermost =
        std::ranges::find(m_bindings.rbegin(), m_bindings.rend(), prefix, &Binding::prefix);
    return innermost == m_bindings.rend() ? nullptr : &innermost->uri;
}

} // namespace mrl::detail
