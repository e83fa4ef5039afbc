#include "HBLIDOM/HBLIDOM_Attr.h"

#include "HBLIDOM/HBLIDOM_DOMException.h"
#include "HBLIDOM/detail/DomAccess.h"

HBLIDOM_Attr::HBLIDOM_Attr(const HBLIDOM_Node& node)
    : HBLIDOM_Node(node) {
    mrl::detail::DomAccess::requireType(node, ATTRIBUTE_NODE, "Attr::Attr", "an attribute");
}
