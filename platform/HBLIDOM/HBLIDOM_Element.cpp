#include "HBLIDOM/HBLIDOM_Element.h"

#include "HBLIDOM/detail/DomAccess.h"
#include "HBLIDOM/detail/DomPlace.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/util/XMLUni.hpp>

using mrl::detail::changing;
using mrl::detail::DomAccess;
using mrl::detail::namespaceOrNull;
using mrl::detail::viewed;
using xercesc::DOMElement;
using xercesc::DOMNode;

HBLIDOM_Element::HBLIDOM_Element(const HBLIDOM_Node& node)
    : HBLIDOM_Node(node) {
    DomAccess::requireType(node, ELEMENT_NODE, "Element::Element", "an element");
}

I18NString HBLIDOM_Element::getAttribute(const I18NString& name) const {
    const auto& element = DomAccess::requiredAs<DOMElement>(*this, "Element::getAttribute");
    return I18NString(element.getAttribute(name.getExternalBuffer()));
}

I18NString HBLIDOM_Element::getAttributeNS(const I18NString& namespaceURI,
                                           const I18NString& localName) const {
    const auto& element = DomAccess::requiredAs<DOMElement>(*this, "Element::getAttributeNS");
    return I18NString(element.getAttributeNS(namespaceOrNull(namespaceURI), localName.getExternalBuffer()));
}

void HBLIDOM_Element::setAttribute(const I18NString& name, const I18NString& value) {
    constexpr const char* OPERATION = "Element::setAttribute";
    auto& element = DomAccess::requiredAs<DOMElement>(*this, OPERATION);
    const bool isDeclaration = name.view() == u"xmlns" || name.view().starts_with(u"xmlns:");
    changing(OPERATION, &element, &name, [&] {
        if (isDeclaration) {
            element.setAttributeNS(xercesc::XMLUni::fgXMLNSURIName, name.getExternalBuffer(),
                                   value.getExternalBuffer());
        } else {
            element.setAttribute(name.getExternalBuffer(), value.getExternalBuffer());
        }
    });
}

void HBLIDOM_Element::setAttributeNS(const I18NString& namespaceURI, const I18NString& qualifiedName,
                                     const I18NString& value) {
    constexpr const char* OPERATION = "Element::setAttributeNS";
    auto& element = DomAccess::requiredAs<DOMElement>(*this, OPERATION);
    changing(OPERATION, &element, &qualifiedName, [&] {
        element.setAttributeNS(namespaceOrNull(namespaceURI), qualifiedName.getExternalBuffer(),
                               value.getExternalBuffer());
    });
}

HBLIDOM_NodeList HBLIDOM_Element::getElementsByTagNameNS(const I18NString& namespaceURI,
                                                         const I18NString& localName) const {
    return DomAccess::below(*this, "Element::getElementsByTagNameNS", [&](DOMNode& node) {
        return node.getNodeType() == DOMNode::ELEMENT_NODE &&
               viewed(node.getLocalName()) == localName.view() &&
               viewed(node.getNamespaceURI()) == namespaceURI.view();
    });
}

int HBLIDOM_Element::getLineNumber() const {
    return mrl::detail::placeOf(DomAccess::required(*this, "Element::getLineNumber")).line;
}

int HBLIDOM_Element::getColumnNumber() const {
    return mrl::detail::placeOf(DomAccess::required(*this, "Element::getColumnNumber")).column;
}
