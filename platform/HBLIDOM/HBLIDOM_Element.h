#pragma once

#include "HBLIDOM/HBLIDOM_Node.h"
#include "HBLIDOM/HBLIDOM_NodeList.h"

/// An element of a document.
class MRL_EXPORT HBLIDOM_Element : public HBLIDOM_Node {
public:
    HBLIDOM_Element() = default;
    /// The element that `node` is, null for null.
    /// @throws HBLIDOM_DOMException when it is something else.
    explicit HBLIDOM_Element(const HBLIDOM_Node& node);

    /// With the prefix.
    I18NString getTagName() const { return getNodeName(); }

    /// By the whole name with its prefix; empty when there is none.
    I18NString getAttribute(const I18NString& name) const;
    /// By namespace (empty for none) and local name; empty when there is none.
    I18NString getAttributeNS(const I18NString& namespaceURI, const I18NString& localName) const;

    /// Sets or replaces by the whole name. A new attribute gets no namespace, but for a declaration
    /// ("xmlns", "xmlns:bus"), which gets the one that it has after parsing.
    /// @throws HBLIDOM_DOMException for what is no name.
    void setAttribute(const I18NString& name, const I18NString& value);
    /// @param namespaceURI empty for none.
    /// @throws HBLIDOM_DOMException for what is no name and for a prefix without a namespace.
    void setAttributeNS(const I18NString& namespaceURI, const I18NString& qualifiedName,
                        const I18NString& value);

    /// The elements below, at any depth, in the order of the document, as they are now.
    /// @param namespaceURI empty for none.
    HBLIDOM_NodeList getElementsByTagNameNS(const I18NString& namespaceURI,
                                            const I18NString& localName) const;

    /// Where the start tag ended in what was parsed with HBLIDOM_Parser::eKeepPlaces, from 1 on; else 0.
    int getLineNumber() const;
    int getColumnNumber() const;
};
