#include "HBLIDOM/HBLIDOM_NamedNodeMap.h"

#include "HBLIDOM/detail/DomAccess.h"

#include <xercesc/dom/DOMNamedNodeMap.hpp>

using mrl::detail::DomAccess;

std::size_t HBLIDOM_NamedNodeMap::getLength() const {
    return isNull() != 0 ? 0 : DomAccess::nodeOf(m_element)->getAttributes()->getLength();
}

HBLIDOM_Node HBLIDOM_NamedNodeMap::item(std::size_t index) const {
    return index < getLength()
               ? DomAccess::handle(m_element, DomAccess::nodeOf(m_element)->getAttributes()->item(index))
               : HBLIDOM_Node();
}
