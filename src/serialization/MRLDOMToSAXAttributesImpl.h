#pragma once

#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM.h"

#include <xercesc/sax2/Attributes.hpp>

#include <vector>

/// The attributes of a DOM element as the readers' handlers want them. Every text that it hands out is
/// good as long as it lives. One thread at a time.
class MRLDOMToSAXAttributesImpl : public xercesc::Attributes {
public:
    explicit MRLDOMToSAXAttributesImpl(const HBLIDOM::NamedNodeMap& attributes);
    ~MRLDOMToSAXAttributesImpl() override;

    // By index: null beyond the end.
    XMLSize_t getLength() const override;
    const XMLCh* getURI(XMLSize_t index) const override;
    const XMLCh* getLocalName(XMLSize_t index) const override;
    const XMLCh* getQName(XMLSize_t index) const override;
    const XMLCh* getType(XMLSize_t index) const override;
    const XMLCh* getValue(XMLSize_t index) const override;

    // By name: -1, false and null when there is none.
    bool getIndex(const XMLCh* uri, const XMLCh* localPart, XMLSize_t& index) const override;
    int getIndex(const XMLCh* uri, const XMLCh* localPart) const override;
    bool getIndex(const XMLCh* qName, XMLSize_t& index) const override;
    int getIndex(const XMLCh* qName) const override;
    /// "CDATA" whatever the name, as there is no declaration.
    const XMLCh* getType(const XMLCh* uri, const XMLCh* localPart) const override;
    const XMLCh* getType(const XMLCh* qName) const override;
    const XMLCh* getValue(const XMLCh* uri, const XMLCh* localPart) const override;
    const XMLCh* getValue(const XMLCh* qName) const override;

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
