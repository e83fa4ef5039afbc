#include "HBLIDOM/HBLIDOM_Document.h"

#include "HBLIDOM/detail/DomAccess.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMText.hpp>

using mrl::detail::changing;
using mrl::detail::DomAccess;
using xercesc::DOMDocument;
using xercesc::DOMNode;

namespace {

/// Copies all below `source` to `copy`. The XML library's own way to do so costs stack for each level.
void importBelow(DOMDocument& document, DOMNode& source, DOMNode& copy) {
    DOMNode* from = &source;
    DOMNode* to = &copy;
    while (true) {
        if (DOMNode* const child = from->getFirstChild()) {
            to = to->appendChild(document.importNode(child, false));
            from = child;
            continue;
        }
        while (from != &source && from->getNextSibling() == nullptr) {
            from = from->getParentNode();
            to = to->getParentNode();
        }
        if (from == &source) {
            return;
        }
        from = from->getNextSibling();
        to = to->getParentNode()->appendChild(document.importNode(from, false));
    }
}

} // namespace

HBLIDOM_Document::HBLIDOM_Document(const HBLIDOM_Node& node)
    : HBLIDOM_Node(node) {
    DomAccess::requireType(node, DOCUMENT_NODE, "Document::Document", "a document");
}

HBLIDOM_Element HBLIDOM_Document::getDocumentElement() const {
    const auto& document = DomAccess::requiredAs<DOMDocument>(*this, "Document::getDocumentElement");
    return HBLIDOM_Element(DomAccess::handle(*this, document.getDocumentElement()));
}

HBLIDOM_Element HBLIDOM_Document::createElementNS(const I18NString& namespaceURI,
                                                  const I18NString& qualifiedName) {
    constexpr const char* OPERATION = "Document::createElementNS";
    auto& document = DomAccess::requiredAs<DOMDocument>(*this, OPERATION);
    DOMNode* const element = changing(OPERATION, &document, &qualifiedName, [&] {
        return document.createElementNS(mrl::detail::namespaceOrNull(namespaceURI),
                                        qualifiedName.getExternalBuffer());
    });
    return HBLIDOM_Element(DomAccess::handle(*this, element));
}

HBLIDOM_Node HBLIDOM_Document::createTextNode(const I18NString& text) {
    constexpr const char* OPERATION = "Document::createTextNode";
    auto& document = DomAccess::requiredAs<DOMDocument>(*this, OPERATION);
    DOMNode* const node = changing(OPERATION, &document, nullptr,
                                   [&] { return document.createTextNode(text.getExternalBuffer()); });
    return DomAccess::handle(*this, node);
}

HBLIDOM_Node HBLIDOM_Document::importNode(const HBLIDOM_Node& node, int deep) {
    constexpr const char* OPERATION = "Document::importNode";
    auto& document = DomAccess::requiredAs<DOMDocument>(*this, OPERATION);
    DOMNode& source = DomAccess::required(node, OPERATION);
    DOMNode* const copy = changing(OPERATION, &source, nullptr, [&] {
        DOMNode* const imported = document.importNode(&source, false);
        if (deep != 0 && source.getNodeType() == DOMNode::ELEMENT_NODE) {
            importBelow(document, source, *imported);
        }
        return imported;
    });
    return DomAccess::handle(*this, copy);
}
