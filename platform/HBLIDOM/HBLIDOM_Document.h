#pragma once

#include "HBLIDOM/HBLIDOM_Element.h"
#include "HBLIDOM/HBLIDOM_TreeWalker.h"

/// A document. Made by HBLIDOM_DOMImplementation or HBLIDOM_Parser; it ends with the last handle into
/// it, and with it every node that it made, appended or not.
class MRL_EXPORT HBLIDOM_Document : public HBLIDOM_Node {
public:
    HBLIDOM_Document() = default;
    /// The document that `node` is, null for null.
    /// @throws HBLIDOM_DOMException when it is something else.
    explicit HBLIDOM_Document(const HBLIDOM_Node& node);

    /// Null for a document without one.
    HBLIDOM_Element getDocumentElement() const;

    /// A new element, not yet part of the tree.
    /// @param namespaceURI empty for none.
    /// @throws HBLIDOM_DOMException for what is no name and for a prefix without a namespace.
    HBLIDOM_Element createElementNS(const I18NString& namespaceURI, const I18NString& qualifiedName);

    /// A new text, not yet part of the tree.
    HBLIDOM_Node createTextNode(const I18NString& text);

    /// A copy of a node of any document, not yet part of the tree.
    /// @param deep with all below it; 0 for the node and its attributes.
    /// @throws HBLIDOM_DOMException for a document.
    HBLIDOM_Node importNode(const HBLIDOM_Node& node, int deep);

    HBLIDOM_TreeWalker createTreeWalker(const HBLIDOM_Node& root,
                                        std::uint32_t whatToShow = HBLIDOM_TreeWalker::SHOW_ELEMENT) const {
        return HBLIDOM_TreeWalker(root, whatToShow);
    }
};
