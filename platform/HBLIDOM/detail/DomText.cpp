#include "HBLIDOM/detail/DomText.h"

#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/I18NConverter.h"
#include "HBLIDOM/HBLIDOM_DOMException.h"
#include "HBLIDOM/detail/DomAccess.h"

#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <algorithm>

namespace mrl::detail {

namespace {

using xercesc::DOMNode;

constexpr std::size_t PIECE = 8192;                                // bytes gathered for the writer
constexpr std::size_t LARGEST_PIECE = 1U << 30;                    // what an int surely holds
constexpr std::string_view REPLACEMENT_CHARACTER = "\xEF\xBF\xBD"; // U+FFFD

/// The form of an ASCII character; empty when it stands for itself.
std::string_view escapeOf(char c, bool isInAttribute) {
    switch (c) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '\r': return "&#13;"; // would be read as a line feed
    case '"': return isInAttribute ? "&quot;" : "";
    case '\t': return isInAttribute ? "&#9;" : ""; // would be read as blanks
    case '\n': return isInAttribute ? "&#10;" : "";
    default: return static_cast<unsigned char>(c) < 0x20 ? REPLACEMENT_CHARACTER : "";
    }
}

/// U+FFFE and U+FFFF, which XML cannot hold.
bool isNoncharacter(std::string_view rest) {
    return rest.starts_with("\xEF\xBF\xBE") || rest.starts_with("\xEF\xBF\xBF");
}

} // namespace

void DomText::write(DOMNode& root) {
    m_isDocument = root.getNodeType() == DOMNode::DOCUMENT_NODE;
    DOMNode* node = &root;
    while (true) {
        open(*node);
        if (DOMNode* const child = node->getFirstChild()) {
            node = child;
            continue;
        }
        close(*node);
        while (node != &root && node->getNextSibling() == nullptr) {
            node = node->getParentNode();
            close(*node);
        }
        if (node == &root) {
            break;
        }
        node = node->getNextSibling();
    }
    handOn();
}

void DomText::open(DOMNode& node) {
    switch (node.getNodeType()) {
    case DOMNode::DOCUMENT_NODE:
        put(R"(<?xml version="1.0" encoding="UTF-8"?>)");
        endline();
        break;
    case DOMNode::ELEMENT_NODE: openElement(node); break;
    case DOMNode::TEXT_NODE: putEscaped(node.getNodeValue(), Place::text); break;
    case DOMNode::CDATA_SECTION_NODE:
        put("<![CDATA[");
        put(node.getNodeValue());
        put("]]>");
        break;
    case DOMNode::COMMENT_NODE:
        put("<!--");
        put(node.getNodeValue());
        put("-->");
        break;
    case DOMNode::PROCESSING_INSTRUCTION_NODE:
        put("<?");
        put(node.getNodeName());
        put(" ");
        put(node.getNodeValue());
        put("?>");
        break;
    default:
        throwDomFailure(HBLIDOM_DOMException::NOT_SUPPORTED_ERR, "Helper::write", &node,
                        "such a node does not stand alone in XML");
    }
}

void DomText::openElement(DOMNode& element) {
    put("<");
    put(element.getNodeName());
    const xercesc::DOMNamedNodeMap& attributes = *element.getAttributes();
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const DOMNode& attribute = *attributes.item(i);
        put(" ");
        put(attribute.getNodeName());
        put("=\"");
        putEscaped(attribute.getNodeValue(), Place::attribute);
        put("\"");
    }
    put(element.hasChildNodes() ? ">" : "/>");
}

void DomText::close(DOMNode& node) {
    if (node.getNodeType() == DOMNode::ELEMENT_NODE && node.hasChildNodes()) {
        put("</");
        put(node.getNodeName());
        put(">");
    }
    if (m_isDocument && node.getParentNode() != nullptr &&
        node.getParentNode()->getNodeType() == DOMNode::DOCUMENT_NODE) {
        endline();
    }
}

void DomText::put(std::string_view piece) {
    m_pending += piece;
    if (m_pending.size() >= PIECE) {
        handOn();
    }
}

void DomText::put(const XMLCh* text) {
    put(I18NConverter().fromUnicode(viewed(text)));
}

void DomText::putEscaped(const XMLCh* text, Place place) {
    const std::string utf8 = I18NConverter().fromUnicode(viewed(text));
    const std::string_view all = utf8;
    std::size_t run = 0; // what goes out unchanged begins here
    for (std::size_t i = 0; i < all.size(); ++i) {
        std::string_view form;
        std::size_t length = 1;
        if (static_cast<unsigned char>(all[i]) == 0xEF && isNoncharacter(all.substr(i))) {
            form = REPLACEMENT_CHARACTER;
            length = 3;
        } else if (static_cast<unsigned char>(all[i]) < 0x80) {
            form = escapeOf(all[i], place == Place::attribute);
        }
        if (!form.empty()) {
            put(all.substr(run, i - run));
            put(form);
            i += length - 1;
            run = i + 1;
        }
    }
    put(all.substr(run));
}

void DomText::endline() {
    handOn();
    m_writer.endline();
}

void DomText::handOn() {
    for (std::string_view rest = m_pending; !rest.empty();) {
        const std::string_view piece = rest.substr(0, LARGEST_PIECE);
        m_writer.write(piece.data(), HBLDowncastSize::int32(piece.size()));
        rest.remove_prefix(piece.size());
    }
    m_pending.clear();
}

} // namespace mrl::detail
