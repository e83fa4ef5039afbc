#include "serialization/detail/NamespaceScope.h"

#include <xercesc/util/XMLUni.hpp>

namespace mrl::detail {

NamespaceScope::NamespaceScope() {
    reset();
}

void NamespaceScope::reset() {
    m_declared.clear();
    m_bindings.clear();
    m_uris.clear();
    m_hasAliases = false;
    ++m_generation;
    m_bindings[u"xml"].push_back(kept(xercesc::XMLUni::fgXMLURIName));
}

const XMLCh* NamespaceScope::kept(std::u16string_view uri) {
    const auto known = m_uris.find(uri);
    return (known != m_uris.end() ? *known : *m_uris.emplace(uri).first).c_str();
}

const XMLCh* NamespaceScope::declare(std::u16string_view prefix, std::u16string_view uri) {
    const std::size_t known = m_uris.size();
    const XMLCh* const name = kept(uri);
    if (m_uris.size() == known) {
        m_hasAliases = true; // perhaps the same prefix again, which costs no more than a needless comparison
    }
    auto place = m_bindings.find(prefix);
    if (place == m_bindings.end()) {
        place = m_bindings.try_emplace(std::u16string(prefix)).first;
    }
    place->second.push_back(name);
    m_declared.push_back(&*place);
    ++m_generation;
    return name;
}

const std::u16string& NamespaceScope::leave() {
    Bindings::value_type& last = *m_declared.back();
    last.second.pop_back();
    m_declared.pop_back();
    ++m_generation;
    return last.first;
}

const XMLCh* NamespaceScope::find(std::u16string_view prefix) const {
    const auto place = m_bindings.find(prefix);
    if (place != m_bindings.end() && !place->second.empty()) {
        return place->second.back();
    }
    return prefix.empty() ? xercesc::XMLUni::fgZeroLenString : nullptr;
}

} // namespace mrl::detail
