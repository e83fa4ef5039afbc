#include "HBLIDOM/HBLIDOM_Element.h"

#include "HBLIDOM/detail/DomAccess.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/util/XMLUni.hpp>

using mrl::detail::changing;
using mrl::detail::DomAccess;
using mrl::detail::namespaceOrNull;
using xercesc::DOMElement;

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
