#pragma once

#include "HBLIDOM/HBLIDOM_Element.h"

#include <string>

class DomWriter;

/// What is asked of documents again and again. A `name` means an element when it is the element's whole
/// name with its prefix ("qzn:value") or its local name ("value"). Searches go through what is below
/// `in`, which is not looked at itself, in the order of the document, and give null when there is
/// nothing; their cost does not depend on how deep it is.
class MRL_EXPORT HBLIDOM_Helper {
public:
    HBLIDOM_Helper() = delete;

    static HBLIDOM_Element findFirstElement(const HBLIDOM_Node& in, const I18NString& name);
    static HBLIDOM_Element findFirstElementNS(const HBLIDOM_Node& in, const I18NString& namespaceURI,
                                              const I18NString& localName);
    /// @param attributeName with its prefix.
    static HBLIDOM_Element findElementWithAttribute(const HBLIDOM_Node& in, const I18NString& name,
                                                    const I18NString& attributeName,
                                                    const I18NString& attributeValue);
    /// The element whose own text is `text`, at any depth.
    static HBLIDOM_Element findChildElementWithText(const HBLIDOM_Node& in, const I18NString& name,
                                                    const I18NString& text);
    /// Looks at the children of `in` only.
    static HBLIDOM_Element findChildElement(const HBLIDOM_Node& in, const I18NString& name);

    /// The texts and CDATA sections that are children of `element`, joined.
    static I18NString getElementText(const HBLIDOM_Node& element);

    /// 1 when the local name (the whole name, for nodes made without regard to namespaces) is
    /// `localName`, else 0.
    static int matchLocalName(const HBLIDOM_Node& node, const I18NString& localName);
    /// 1 when the namespace is `namespaceURI`, else 0; empty is none.
    static int matchNamespaceURI(const HBLIDOM_Node& node, const I18NString& namespaceURI);

    /// Writes `node` and all below it as XML, exactly as it stands in the tree: no namespace declaration
    /// and no white space is added. A document begins with its XML declaration, and each of its children
    /// ends its line. Parsing it again gives the same, but for characters that XML cannot hold, which
    /// become U+FFFD. Attributes are written in the order of their names.
    static void write(const HBLIDOM_Node& node, DomWriter& writer);
    /// The same as a text in UTF-8.
    static std::string toString(const HBLIDOM_Node& node);
};
