#pragma once

#include "serialization/detail/IndexedAttributes.h"

#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM.h"

#include <vector>

/// The attributes of a DOM element as the readers' handlers want them. Every text that it hands out is
/// good as long as it lives. One thread at a time.
class MRLDOMToSAXAttributesImpl : public mrl::detail::IndexedAttributes {
public:
    explicit MRLDOMToSAXAttributesImpl(const HBLIDOM::NamedNodeMap& attributes);
    ~MRLDOMToSAXAttributesImpl() override;

    using IndexedAttributes::getValue;

    // By index: null beyond the end.
    XMLSize_t getLength() const override;
    const XMLCh* getURI(XMLSize_t index) const override;
    const XMLCh* getLocalName(XMLSize_t index) const override;
    const XMLCh* getQName(XMLSize_t index) const override;
    const XMLCh* getValue(XMLSize_t index) const override;

private:
    struct Texts {
        I18NString uri;
        I18NString localName;
        I18NString qName;
        I18NString value;
    };

    const XMLCh* text(XMLSize_t index, I18NString Texts::*member) const;

    std::vector<Texts> m_attributes;
};
