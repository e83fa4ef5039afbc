#include "serialization/detail/EnvelopeAttributes.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace mrl::detail {

EnvelopeAttributes::EnvelopeAttributes() = default;
EnvelopeAttributes::~EnvelopeAttributes() = default;

bool EnvelopeAttributes::hasRepeated() const {
    using Name = std::pair<const XMLCh*, std::u16string_view>;
    std::vector<Name> names;
    names.reserve(m_attributes.size());
    for (const Attribute& attribute : m_attributes) {
        names.emplace_back(attribute.uri, attribute.localName); // one copy of each namespace: places will do
    }
    std::ranges::sort(names);
    return std::ranges::adjacent_find(names) != names.end();
}

} // namespace mrl::detail
