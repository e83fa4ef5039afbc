#pragma once

#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

#include <xercesc/util/XercesDefs.hpp>

#include <memory>

XERCES_CPP_NAMESPACE_BEGIN
class DOMNode;
XERCES_CPP_NAMESPACE_END

class HBLIDOM_Document;
class HBLIDOM_NamedNodeMap;
class HBLIDOM_NodeList;

namespace mrl::detail {
class DomTree;
struct DomAccess;
} // namespace mrl::detail

/// A handle to a node of a document. Copies are cheap and mean the same node, and any of them keeps the
/// whole document alive. A handle may be null; everything but isNull() and comparison then throws
/// HBLIDOM_DOMException (INVALID_ACCESS_ERR), as does any failure below. A document and all handles into
/// it belong to one thread at a time; different documents are independent.
class MRL_EXPORT HBLIDOM_Node {
public:
    enum NodeType : int {
        ELEMENT_NODE = 1,
        ATTRIBUTE_NODE = 2,
        TEXT_NODE = 3,
        CDATA_SECTION_NODE = 4,
        PROCESSING_INSTRUCTION_NODE = 7,
        COMMENT_NODE = 8,
        DOCUMENT_NODE = 9,
    };

    HBLIDOM_Node() = default;

    int isNull() const noexcept { return m_node == nullptr; }

    NodeType getNodeType() const;
    /// The whole name of an element or attribute with its prefix; "#text", "#document" and so on.
    I18NString getNodeName() const;
    /// The text of an attribute, text, comment or CDATA section; empty for others.
    I18NString getNodeValue() const;
    /// Empty for nodes without a name, and for those made without regard to namespaces.
    I18NString getLocalName() const;
    /// Empty for none.
    I18NString getPrefix() const;
    /// Empty for none.
    I18NString getNamespaceURI() const;

    HBLIDOM_Node getParentNode() const;
    HBLIDOM_Node getFirstChild() const;
    HBLIDOM_Node getLastChild() const;
    HBLIDOM_Node getPreviousSibling() const;
    HBLIDOM_Node getNextSibling() const;
    /// The children as they are now.
    HBLIDOM_NodeList getChildNodes() const;
    /// Null for all but elements.
    HBLIDOM_NamedNodeMap getAttributes() const;
    /// The document itself for a document.
    HBLIDOM_Document getOwnerDocument() const;

    /// Makes `child`, which is of the same document, the last child; it leaves its former parent.
    /// @return the child.
    HBLIDOM_Node appendChild(const HBLIDOM_Node& child);

    /// Takes `child` out of the tree; it stays a node of the document.
    /// @return the child.
    /// @throws HBLIDOM_DOMException (NOT_FOUND_ERR) when it is no child of this node.
    HBLIDOM_Node removeChild(const HBLIDOM_Node& child);

    /// The same node.
    friend bool operator==(const HBLIDOM_Node& a, const HBLIDOM_Node& b) noexcept {
        return a.m_node == b.m_node;
    }

private:
    friend struct mrl::detail::DomAccess;

    std::shared_ptr<mrl::detail::DomTree> m_tree;
    xercesc::DOMNode* m_node = nullptr; // borrowed from m_tree
};
