#include "serialization/MRLDOMToSAXAttributesImpl.h"

#include "HBLCore/HBLDowncastSize.h"

namespace {

const XMLCh* const CDATA = u"CDATA";

std::u16string_view viewed(const XMLCh* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

} // namespace

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

const XMLCh* MRLDOMToSAXAttributesImpl::getType(XMLSize_t index) const {
    return index < m_attributes.size() ? CDATA : nullptr;
}

const XMLCh* MRLDOMToSAXAttributesImpl::getValue(XMLSize_t index) const {
    return text(index, &Texts::value);
}

bool MRLDOMToSAXAttributesImpl::getIndex(const XMLCh* uri, const XMLCh* localPart, XMLSize_t& index) const {
    const int found = getIndex(uri, localPart);
    if (found >= 0) {
        index = static_cast<XMLSize_t>(found);
    }
    return found >= 0;
}

int MRLDOMToSAXAttributesImpl::getIndex(const XMLCh* uri, const XMLCh* localPart) const {
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        if (m_attributes[i].localName.view() == viewed(localPart) &&
            m_attributes[i].uri.view() == viewed(uri)) {
            return HBLDowncastSize::int32(i);
        }
    }
    return -1;
}

bool MRLDOMToSAXAttributesImpl::getIndex(const XMLCh* qName, XMLSize_t& index) const {
    const int found = getIndex(qName);
    if (found >= 0) {
        index = static_cast<XMLSize_t>(found);
    }
    return found >= 0;
}

int MRLDOMToSAXAttributesImpl::getIndex(const XMLCh* qName) const {
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        if (m_attributes[i].qName.view() == viewed(qName)) {
            return HBLDowncastSize::int32(i);
        }
    }
    return -1;
}

const XMLCh* MRLDOMToSAXAttributesImpl::getType(const XMLCh* /*uri*/, const XMLCh* /*localPart*/) const {
    return CDATA;
}

const XMLCh* MRLDOMToSAXAttributesImpl::getType(const XMLCh* /*qName*/) const {
    return CDATA;
}

const XMLCh* MRLDOMToSAXAttributesImpl::getValue(const XMLCh* uri, const XMLCh* localPart) const {
    return text(static_cast<XMLSize_t>(getIndex(uri, localPart)), &Texts::value); // -1 is beyond the end
}

const XMLCh* MRLDOMToSAXAttributesImpl::getValue(const XMLCh* qName) const {
    return text(static_cast<XMLSize_t>(getIndex(qName)), &Texts::value);
}
