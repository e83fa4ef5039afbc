#pragma once

#include <xercesc/sax2/Attributes.hpp>

namespace mrl::detail {

/// Attributes that are known by index, and looked up by name one after the other.
class IndexedAttributes : public xercesc::Attributes {
public:
    /// "CDATA", since there are no declarations; null beyond the end.
    const XMLCh* getType(XMLSize_t index) const override;

    // By name: -1, false and null when there is none.
    bool getIndex(const XMLCh* uri, const XMLCh* localPart, XMLSize_t& index) const override;
    int getIndex(const XMLCh* uri, const XMLCh* localPart) const override;
    bool getIndex(const XMLCh* qName, XMLSize_t& index) const override;
    int getIndex(const XMLCh* qName) const override;
    /// "CDATA" whatever the name.
    const XMLCh* getType(const XMLCh* uri, const XMLCh* localPart) const override;
    const XMLCh* getType(const XMLCh* qName) const override;
    const XMLCh* getValue(const XMLCh* uri, const XMLCh* localPart) const override;
    const XMLCh* getValue(const XMLCh* qName) const override;

    using xercesc::Attributes::getValue;
};

} // namespace mrl::detail
