#pragma once

#include "HBLCore/MRLExport.h"

/// A sink for the XML of a document: see HBLIDOM_Helper::write(). Derived classes say where it goes.
class MRL_EXPORT DomWriter {
public:
    /// @param encoding "UTF-8", the one there is.
    /// @throws HBLIDOM_DOMException (NOT_SUPPORTED_ERR) for another.
    explicit DomWriter(const char* encoding);
    DomWriter(const DomWriter&) = delete;
    DomWriter& operator=(const DomWriter&) = delete;
    virtual ~DomWriter();

    /// Takes `length` bytes.
    virtual void write(const char* s, int length) = 0;
    /// Ends a line: a line feed.
    virtual void endline();
    /// Hands on what is held back. Does nothing by default.
    virtual void flush();
    /// Takes a terminated text; null is empty.
    virtual void write(const char* s);

    const char* getEncoding() const noexcept { return "UTF-8"; }
};
