#pragma once

#include <xercesc/dom/DOMDocument.hpp>

namespace mrl::detail {

/// Owner of one document, shared by all handles into it. Ending it gives back the document's memory as
/// a whole and walks through nothing.
class DomTree {
public:
    explicit DomTree(xercesc::DOMDocument* adopted) noexcept
        : m_document(adopted) {}
    ~DomTree() { m_document->release(); }

    DomTree(const DomTree&) = delete;
    DomTree& operator=(const DomTree&) = delete;

    xercesc::DOMDocument& document() const noexcept { return *m_document; }

private:
    xercesc::DOMDocument* const m_document;
};

} // namespace mrl::detail
