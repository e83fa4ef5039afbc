#include "HBLIDOM/HBLIDOM_Node.h"

#include "HBLIDOM/detail/DomAccess.h"

using mrl::detail::DomAccess;

HBLIDOM_Node::NodeType HBLIDOM_Node::getNodeType() const {
    return static_cast<NodeType>(DomAccess::required(*this, "Node::getNodeType").getNodeType());
}

I18NString HBLIDOM_Node::getNodeName() const {
    return I18NString(DomAccess::required(*this, "Node::getNodeName").getNodeName());
}

I18NString HBLIDOM_Node::getNodeValue() const {
    return I18NString(DomAccess::required(*this, "Node::getNodeValue").getNodeValue());
}

I18NString HBLIDOM_Node::getLocalName() const {
    return I18NString(DomAccess::required(*this, "Node::getLocalName").getLocalName());
}

I18NString HBLIDOM_Node::getPrefix() const {
    return I18NString(DomAccess::required(*this, "Node::getPrefix").getPrefix());
}

I18NString HBLIDOM_Node::getNamespaceURI() const {
    return I18NString(DomAccess::required(*this, "Node::getNamespaceURI").getNamespaceURI());
}

HBLIDOM_Node HBLIDOM_Node::getParentNode() const {
    return DomAccess::handle(*this, DomAccess::required(*this, "Node::getParentNode").getParentNode());
}

HBLIDOM_Node HBLIDOM_Node::getFirstChild() const {
    return DomAccess::handle(*this, DomAccess::required(*this, "Node::getFirstChild").getFirstChild());
}

HBLIDOM_Node HBLIDOM_Node::getLastChild() const {
    return DomAccess::handle(*this, DomAccess::required(*this, "Node::getLastChild").getLastChild());
}

HBLIDOM_Node HBLIDOM_Node::getPreviousSibling() const {
    return DomAccess::handle(*this,
                             DomAccess::required(*this, "Node::getPreviousSibling").getPreviousSibling());
}

HBLIDOM_Node HBLIDOM_Node::getNextSibling() const {
    return DomAccess::handle(*this, DomAccess::required(*this, "Node::getNextSibling").getNextSibling());
}

HBLIDOM_NodeList HBLIDOM_Node::getChildNodes() const {
    return DomAccess::children(*this, "Node::getChildNodes");
}

HBLIDOM_NamedNodeMap HBLIDOM_Node::getAttributes() const {
    return DomAccess::attributes(*this, "Node::getAttributes");
}

HBLIDOM_Document HBLIDOM_Node::getOwnerDocument() const {
    xercesc::DOMNode& node = DomAccess::required(*this, "Node::getOwnerDocument");
    xercesc::DOMDocument* const owner = node.getOwnerDocument();
    return HBLIDOM_Document(owner == nullptr ? *this : DomAccess::handle(*this, owner));
}

HBLIDOM_Node HBLIDOM_Node::appendChild(const HBLIDOM_Node& child) {
    constexpr const char* OPERATION = "Node::appendChild";
    xercesc::DOMNode& node = DomAccess::required(*this, OPERATION);
    xercesc::DOMNode& added = DomAccess::required(child, OPERATION);
    mrl::detail::changing(OPERATION, &node, nullptr, [&] { return node.appendChild(&added); });
    return child;
}

HBLIDOM_Node HBLIDOM_Node::removeChild(const HBLIDOM_Node& child) {
    constexpr const char* OPERATION = "Node::removeChild";
    xercesc::DOMNode& node = DomAccess::required(*this, OPERATION);
    xercesc::DOMNode& removed = DomAccess::required(child, OPERATION);
    mrl::detail::changing(OPERATION, &node, nullptr, [&] { return node.removeChild(&removed); });
    return child;
}
