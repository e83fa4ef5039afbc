#include "serialization/MRLDOMToSAXAttributesImpl.h"

MRLDOMToSAXAttributesImpl::MRLDOMToSAXAttributesImpl(const HBLIDOM::NamedNodeMap& attributes) {
    const std::size_t length = attributes.getLength();
    m_attributes.reserve(length);
    for (std::size_t i = 0; i < length; ++i) {
        const HBLIDOM::Attr attribute(attributes.item(i));
        m_attributes.push_back({attribute.getNamespaceURI(), attribute.getLocalName(), attribute.getName(),
                                attribute.getValue()});
    }
}

MRLDOMToSAXAttributesImpl::~MRLDOMToSAXAttributesImpl() = default;

const XMLCh* MRLDOMToSAXAttributesImpl::text(XMLSize_t index, I18NString Texts::*member) const {
    return index < m_attributes.size() ? (m_attributes[index].*member).getExternalBuffer() : nullptr;
}

XMLSize_t MRLDOMToSAXAttributesImpl::getLength() const {
    return m_attributes.size();
}

const XMLCh* MRLDOMToSAXAttributesImpl::getURI(XMLSize_t index) const {
    return text(index, &Texts::uri);
}

const XMLCh* MRLDOMToSAXAttributesImpl::getLocalName(XMLSize_t index) const {
    return text(index, &Texts::localName);
}

const XMLCh* MRLDOMToSAXAttributesImpl::getQName(XMLSize_t index) const {
    return text(index, &Texts::qName);
}

const XMLCh* MRLDOMToSAXAttributesImpl::getValue(XMLSize_t index) const {
    return text(index, &Texts::value);
}
