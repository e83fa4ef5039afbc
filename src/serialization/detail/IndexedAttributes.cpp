#include "serialization/detail/IndexedAttributes.h"

#include "HBLCore/HBLDowncastSize.h"

#include <string_view>

namespace mrl::detail {

namespace {

const XMLCh* const CDATA = u"CDATA";

std::u16string_view viewed(const XMLCh* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

bool given(int found, XMLSize_t& index) {
    if (found >= 0) {
        index = static_cast<XMLSize_t>(found);
    }
    return found >= 0;
}

} // namespace

const XMLCh* IndexedAttributes::getType(XMLSize_t index) const {
    return index < getLength() ? CDATA : nullptr;
}

bool IndexedAttributes::getIndex(const XMLCh* uri, const XMLCh* localPart, XMLSize_t& index) const {
    return given(getIndex(uri, localPart), index);
}

int IndexedAttributes::getIndex(const XMLCh* uri, const XMLCh* localPart) const {
    for (XMLSize_t i = 0; i < getLength(); ++i) {
        if (viewed(getLocalName(i)) == viewed(localPart) && viewed(getURI(i)) == viewed(uri)) {
            return HBLDowncastSize::int32(i);
        }
    }
    return -1;
}

bool IndexedAttributes::getIndex(const XMLCh* qName, XMLSize_t& index) const {
    return given(getIndex(qName), index);
}

int IndexedAttributes::getIndex(const XMLCh* qName) const {
    for (XMLSize_t i = 0; i < getLength(); ++i) {
        if (viewed(getQName(i)) == viewed(qName)) {
            return HBLDowncastSize::int32(i);
        }
    }
    return -1;
}

const XMLCh* IndexedAttributes::getType(const XMLCh* /*uri*/, const XMLCh* /*localPart*/) const {
    return CDATA;
}

const XMLCh* IndexedAttributes::getType(const XMLCh* /*qName*/) const {
    return CDATA;
}

const XMLCh* IndexedAttributes::getValue(const XMLCh* uri, const XMLCh* localPart) const {
    return getValue(static_cast<XMLSize_t>(getIndex(uri, localPart))); // -1 is beyond the end
}

const XMLCh* IndexedAttributes::getValue(const XMLCh* qName) const {
    return getValue(static_cast<XMLSize_t>(getIndex(qName)));
}

} // namespace mrl::detail
