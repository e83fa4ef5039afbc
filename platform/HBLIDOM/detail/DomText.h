#pragma once

#include "HBLIDOM/DomWriter.h"

#include <xercesc/dom/DOMNode.hpp>

#include <string>
#include <string_view>

namespace mrl::detail {

/// Turns nodes into XML. Gathers small pieces, so that the writer sees few large ones.
class DomText {
public:
    explicit DomText(DomWriter& writer)
        : m_writer(writer) {}

    /// Writes `root` and all below it; the depth costs no stack.
    /// @throws HBLIDOM_DOMException for a kind of node that has no form.
    void write(xercesc::DOMNode& root);

private:
    enum class Place : bool { text, attribute };

    void open(xercesc::DOMNode& node);
    void close(xercesc::DOMNode& node);
    void openElement(xercesc::DOMNode& element);
    void put(std::string_view piece);
    void put(const XMLCh* text);
    void putEscaped(const XMLCh* text, Place place);
    void endline();
    void handOn();

    DomWriter& m_writer;
    bool m_isDocument = false;
    std::string m_pending;
};

} // namespace mrl::detail
