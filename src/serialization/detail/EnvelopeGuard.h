#pragma once

#include "serialization/MRLReaderLimits.h"

#include <xercesc/sax2/DefaultHandler.hpp>

#include <cstdint>
#include <vector>

namespace mrl::detail {

class GuardedInput;

/// Stands between the parser and a handler: holds the document against the limits, and hands on what
/// passes. The depth of the input costs memory here, never stack.
class EnvelopeGuard final : public xercesc::DefaultHandler {
public:
    /// All are borrowed.
    EnvelopeGuard(xercesc::ContentHandler& handler, GuardedInput& input, const MRLReaderLimits& limits)
        : m_handler(handler)
        , m_input(input)
        , m_limits(limits) {}
    ~EnvelopeGuard() override;

    // Content
    void startDocument() override;
    void endDocument() override;
    void startElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname,
                      const xercesc::Attributes& attributes) override;
    void endElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname) override;
    void characters(const XMLCh* chars, XMLSize_t length) override;
    void startPrefixMapping(const XMLCh* prefix, const XMLCh* uri) override;
    void endPrefixMapping(const XMLCh* prefix) override;
    void processingInstruction(const XMLCh* target, const XMLCh* data) override;

    // Lexical
    void comment(const XMLCh* chars, XMLSize_t length) override;

    // Errors
    void fatalError(const xercesc::SAXParseException& failure) override;

private:
    xercesc::ContentHandler& m_handler;
    GuardedInput& m_input;
    const MRLReaderLimits& m_limits;
    std::vector<std::uint32_t> m_children; // of each open element
    std::uint64_t m_elements = 0;
    std::uint64_t m_textLength = 0;
};

} // namespace mrl::detail
