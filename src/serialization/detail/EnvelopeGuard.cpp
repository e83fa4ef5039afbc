#include "serialization/detail/EnvelopeGuard.h"

#include "serialization/detail/GuardedInput.h"

#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>

namespace mrl::detail {

EnvelopeGuard::~EnvelopeGuard() = default;

void EnvelopeGuard::startDocument() {
    m_handler.startDocument();
}

void EnvelopeGuard::endDocument() {
    m_input.rethrowFailure();
    m_handler.endDocument();
}

void EnvelopeGuard::startElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname,
                                 const xercesc::Attributes& attributes) {
    m_input.noteProgress();
    m_textLength = 0;
    if (m_children.size() >= m_limits.elementDepth) {
        limitExceeded("elements within elements", "elementDepth", m_limits.elementDepth);
    }
    if (++m_elements > m_limits.totalElements) {
        limitExceeded("elements of a document", "totalElements", m_limits.totalElements);
    }
    if (attributes.getLength() > m_limits.attributesOfElement) {
        limitExceeded("attributes of an element", "attributesOfElement", m_limits.attributesOfElement);
    }
    if (!m_children.empty() && ++m_children.back() > m_limits.childrenOfElement) {
        limitExceeded("children of an element", "childrenOfElement", m_limits.childrenOfElement);
    }
    m_children.push_back(0);
    m_handler.startElement(uri, localname, qname, attributes);
}

void EnvelopeGuard::endElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname) {
    m_input.noteProgress();
    m_textLength = 0;
    m_children.pop_back();
    m_handler.endElement(uri, localname, qname);
}

void EnvelopeGuard::characters(const XMLCh* chars, XMLSize_t length) {
    m_input.noteProgress();
    m_textLength += length;
    if (m_textLength > m_limits.textLength) {
        limitExceeded("characters in the text of an element", "textLength", m_limits.textLength);
    }
    m_handler.characters(chars, length);
}

void EnvelopeGuard::startPrefixMapping(const XMLCh* prefix, const XMLCh* uri) {
    m_handler.startPrefixMapping(prefix, uri);
}

void EnvelopeGuard::endPrefixMapping(const XMLCh* prefix) {
    m_handler.endPrefixMapping(prefix);
}

void EnvelopeGuard::processingInstruction(const XMLCh* /*target*/, const XMLCh* /*data*/) {
    m_input.noteProgress();
}

void EnvelopeGuard::comment(const XMLCh* /*chars*/, XMLSize_t /*length*/) {
    m_input.noteProgress();
}

void EnvelopeGuard::fatalError(const xercesc::SAXParseException& failure) {
    m_input.rethrowFailure(); // the document ended for the parser since there was no more to be had
    DefaultHandler::fatalError(failure);
}

} // namespace mrl::detail
