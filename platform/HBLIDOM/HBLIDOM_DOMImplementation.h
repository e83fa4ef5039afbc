#pragma once

#include "HBLIDOM/HBLIDOM_Document.h"

/// Makes documents. One instance for the process; thread-safe.
class MRL_EXPORT HBLIDOM_DOMImplementation {
public:
    static HBLIDOM_DOMImplementation& getInstance();

    HBLIDOM_DOMImplementation(const HBLIDOM_DOMImplementation&) = delete;
    HBLIDOM_DOMImplementation& operator=(const HBLIDOM_DOMImplementation&) = delete;

    /// A document with nothing in it.
    HBLIDOM_Document createDocument();

    /// A document with a document element.
    /// @param namespaceURI empty for none.
    /// @throws HBLIDOM_DOMException for what is no name.
    HBLIDOM_Document createDocument(const I18NString& namespaceURI, const I18NString& qualifiedName);

private:
    HBLIDOM_DOMImplementation();
};
