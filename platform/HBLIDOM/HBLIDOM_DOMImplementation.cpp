#include "HBLIDOM/HBLIDOM_DOMImplementation.h"

#include "HBLIDOM/detail/DomAccess.h"
#include "HBLIDOM/detail/XmlLibrary.h"

#include <xercesc/dom/DOMImplementation.hpp>

using mrl::detail::DomAccess;

HBLIDOM_DOMImplementation& HBLIDOM_DOMImplementation::getInstance() {
    static HBLIDOM_DOMImplementation s_instance;
    return s_instance;
}

HBLIDOM_DOMImplementation::HBLIDOM_DOMImplementation() {
    mrl::detail::startXmlLibrary();
}

HBLIDOM_Document HBLIDOM_DOMImplementation::createDocument() {
    return mrl::detail::changing("DOMImplementation::createDocument", nullptr, nullptr, [] {
        return DomAccess::adopt(xercesc::DOMImplementation::getImplementation()->createDocument());
    });
}

HBLIDOM_Document HBLIDOM_DOMImplementation::createDocument(const I18NString& namespaceURI,
                                                           const I18NString& qualifiedName) {
    HBLIDOM_Document document = createDocument();
    document.appendChild(document.createElementNS(namespaceURI, qualifiedName));
    return document;
}
