#include "HBLIDOM/HBLIDOM_Helper.h"

#include "HBLIDOM/DomStreamWriter.h"
#include "HBLIDOM/detail/DomAccess.h"
#include "HBLIDOM/detail/DomText.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <xercesc/dom/DOMElement.hpp>

using mrl::detail::DomAccess;
using mrl::detail::nextBelow;
using mrl::detail::viewed;
using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

std::u16string_view localNameOf(const DOMNode& node) {
    const XMLCh* const localName = node.getLocalName();
    return viewed(localName == nullptr ? node.getNodeName() : localName);
}

bool isNamed(const DOMNode& node, const I18NString& name) {
    return localNameOf(node) == name.view() || viewed(node.getNodeName()) == name.view();
}

bool isElement(const DOMNode& node) {
    return node.getNodeType() == DOMNode::ELEMENT_NODE;
}

/// The first element below `in` that `fits`.
template <class Fits>
HBLIDOM_Element find(const HBLIDOM_Node& in, const char* operation, const Fits& fits) {
    DOMNode& root = DomAccess::required(in, operation);
    for (DOMNode* node = nextBelow(&root, &root); node != nullptr; node = nextBelow(node, &root)) {
        if (isElement(*node) && fits(static_cast<const DOMElement&>(*node))) {
            return HBLIDOM_Element(DomAccess::handle(in, node));
        }
    }
    return {};
}

I18NString ownTextOf(const DOMNode& element) {
    I18NString text;
    for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
        if (child->getNodeType() == DOMNode::TEXT_NODE ||
            child->getNodeType() == DOMNode::CDATA_SECTION_NODE) {
            text.append(I18NString(child->getNodeValue()));
        }
    }
    return text;
}

} // namespace

HBLIDOM_Element HBLIDOM_Helper::findFirstElement(const HBLIDOM_Node& in, const I18NString& name) {
    return find(in, "Helper::findFirstElement",
                [&](const DOMElement& element) { return isNamed(element, name); });
}

HBLIDOM_Element HBLIDOM_Helper::findFirstElementNS(const HBLIDOM_Node& in, const I18NString& namespaceURI,
                                                   const I18NString& localName) {
    return find(in, "Helper::findFirstElementNS", [&](const DOMElement& element) {
        return localNameOf(element) == localName.view() &&
               viewed(element.getNamespaceURI()) == namespaceURI.view();
    });
}

HBLIDOM_Element HBLIDOM_Helper::findElementWithAttribute(const HBLIDOM_Node& in, const I18NString& name,
                                                         const I18NString& attributeName,
                                                         const I18NString& attributeValue) {
    return find(in, "Helper::findElementWithAttribute", [&](const DOMElement& element) {
        return isNamed(element, name) && element.hasAttribute(attributeName.getExternalBuffer()) &&
               viewed(element.getAttribute(attributeName.getExternalBuffer())) == attributeValue.view();
    });
}

HBLIDOM_Element HBLIDOM_Helper::findChildElementWithText(const HBLIDOM_Node& in, const I18NString& name,
                                                         const I18NString& text) {
    return find(in, "Helper::findChildElementWithText", [&](const DOMElement& element) {
        return isNamed(element, name) && ownTextOf(element) == text;
    });
}

HBLIDOM_Element HBLIDOM_Helper::findChildElement(const HBLIDOM_Node& in, const I18NString& name) {
    DOMNode* child = DomAccess::required(in, "Helper::findChildElement").getFirstChild();
    while (child != nullptr && !(isElement(*child) && isNamed(*child, name))) {
        child = child->getNextSibling();
    }
    return HBLIDOM_Element(DomAccess::handle(in, child));
}

I18NString HBLIDOM_Helper::getElementText(const HBLIDOM_Node& element) {
    return ownTextOf(DomAccess::required(element, "Helper::getElementText"));
}

int HBLIDOM_Helper::matchLocalName(const HBLIDOM_Node& node, const I18NString& localName) {
    return localNameOf(DomAccess::required(node, "Helper::matchLocalName")) == localName.view();
}

int HBLIDOM_Helper::matchNamespaceURI(const HBLIDOM_Node& node, const I18NString& namespaceURI) {
    return viewed(DomAccess::required(node, "Helper::matchNamespaceURI").getNamespaceURI()) ==
           namespaceURI.view();
}

void HBLIDOM_Helper::write(const HBLIDOM_Node& node, DomWriter& writer) {
    mrl::detail::DomText(writer).write(DomAccess::required(node, "Helper::write"));
}

std::string HBLIDOM_Helper::toString(const HBLIDOM_Node& node) {
    PLQMemoryOutputStream out(1024, 0);
    DomStreamWriter writer(out);
    write(node, writer);
    return {out.bytes(), out.length()};
}
