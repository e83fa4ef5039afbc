#pragma once

#include "serialization/detail/IndexedAttributes.h"

#include <span>
#include <vector>

namespace mrl::detail {

/// The attributes of the element that begins, as the parser and the scope have them. Keeps its room.
class EnvelopeAttributes final : public IndexedAttributes {
public:
    /// All borrowed until the element's start was told.
    struct Attribute {
        const XMLCh* uri;
        const XMLCh* localName;
        const XMLCh* qName;
        const XMLCh* value;
    };

    EnvelopeAttributes();
    ~EnvelopeAttributes() override;

    void clear() { m_attributes.clear(); }
    void add(const Attribute& attribute) { m_attributes.push_back(attribute); }

    std::span<Attribute> all() { return m_attributes; }

    /// Two of them have the same name in the same namespace. Sorts; for elements that can have such at all.
    bool hasRepeated() const;

    using IndexedAttributes::getValue;
    XMLSize_t getLength() const override { return m_attributes.size(); }
    const XMLCh* getURI(XMLSize_t index) const override { return text(index, &Attribute::uri); }
    const XMLCh* getLocalName(XMLSize_t index) const override { return text(index, &Attribute::localName); }
    const XMLCh* getQName(XMLSize_t index) const override { return text(index, &Attribute::qName); }
    const XMLCh* getValue(XMLSize_t index) const override { return text(index, &Attribute::value); }

private:
    const XMLCh* text(XMLSize_t index, const XMLCh* Attribute::*member) const {
        return index < m_attributes.size() ? m_attributes[index].*member : nullptr;
    }

    std::vector<Attribute> m_attributes;
};

} // namespace mrl::detail
