#include "HBLIDOM/HBLIDOM_NodeList.h"

#include "HBLIDOM/detail/DomAccess.h"

HBLIDOM_Node HBLIDOM_NodeList::item(std::size_t index) const {
    return index < getLength() ? mrl::detail::DomAccess::item(m_tree, (*m_nodes)[index]) : HBLIDOM_Node();
}
