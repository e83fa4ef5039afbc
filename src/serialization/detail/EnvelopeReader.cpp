#include "serialization/detail/EnvelopeReader.h"

#include "serialization/detail/Throw.h"

#include "HBLCore/HBLFailure.h"

#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/internal/WFXMLScanner.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/ContentHandler.hpp>
#include <xercesc/sax2/LexicalHandler.hpp>
#include <xercesc/util/RefVectorOf.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/common/GrammarResolver.hpp>

#include <string_view>

namespace mrl::detail {

namespace {

/// UTF-16 units of text that the scanner gathers before it hands them on.
constexpr XMLSize_t textPiece = 64 * 1024;

std::u16string_view viewed(const XMLCh* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

} // namespace

/// The scanner, which skips document types, taught to refuse them.
class EnvelopeScanner final : public xercesc::WFXMLScanner {
public:
    EnvelopeScanner(EnvelopeReader& reader, xercesc::GrammarResolver& grammars)
        : WFXMLScanner(&reader, nullptr, nullptr, &reader, nullptr, &grammars) {
        setURIStringPool(grammars.getStringPool());
        setDoNamespaces(true);
        setInputBufferSize(textPiece);
    }
    ~EnvelopeScanner() override = default;

private:
    void scanDocTypeDecl() override {
        throwFailure(HBL_HERE, "MRLSOAPMessageIDeserializer::parse", msg::malformedXml,
                     "A document type declaration is not allowed in an envelope.");
    }
};

EnvelopeReader::EnvelopeReader()
    : m_grammars(std::make_unique<xercesc::GrammarResolver>(nullptr))
    , m_scanner(std::make_unique<EnvelopeScanner>(*this, *m_grammars)) {}

EnvelopeReader::~EnvelopeReader() = default;

void EnvelopeReader::run(const xercesc::InputSource& source, xercesc::ContentHandler& content,
                         xercesc::LexicalHandler& lexical, xercesc::ErrorHandler& errors) {
    m_content = &content;
    m_lexical = &lexical;
    m_errors = &errors;
    m_prefixCounts.clear(); // what a document that failed has left
    m_prefixes.clear();
    m_scanner->scanDocument(source);
}

void EnvelopeReader::startDocument() {
    m_content->startDocument();
}

void EnvelopeReader::endDocument() {
    m_content->endDocument();
}

void EnvelopeReader::resetDocument() {}

void EnvelopeReader::startElement(const xercesc::XMLElementDecl& element, const unsigned int uriId,
                                  const XMLCh* /*prefix*/,
                                  const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                                  const XMLSize_t count, const bool isEmpty, const bool /*isRoot*/) {
    const std::uint32_t prefixes = startPrefixMappings(attributes, count);
    m_attributes.setVector(&attributes, count, m_scanner.get());
    const XMLCh* const uri = m_scanner->getURIText(uriId);
    const XMLCh* const local = element.getBaseName();
    m_content->startElement(uri, local, element.getFullName(), m_attributes);
    if (isEmpty) { // the scanner sends no end
        m_content->endElement(uri, local, element.getFullName());
        endPrefixMappings(prefixes);
    } else {
        m_prefixCounts.push_back(prefixes);
    }
}

void EnvelopeReader::endElement(const xercesc::XMLElementDecl& element, const unsigned int uriId,
                                const bool /*isRoot*/, const XMLCh* /*prefix*/) {
    m_content->endElement(m_scanner->getURIText(uriId), element.getBaseName(), element.getFullName());
    endPrefixMappings(m_prefixCounts.back());
    m_prefixCounts.pop_back();
}

std::uint32_t EnvelopeReader::startPrefixMappings(const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                                                  XMLSize_t count) {
    std::uint32_t mappings = 0;
    for (XMLSize_t i = 0; i < count; ++i) {
        const xercesc::XMLAttr& attribute = *attributes.elementAt(i);
        const XMLCh* const leading = attribute.getPrefix() != nullptr && *attribute.getPrefix() != 0
                                         ? attribute.getPrefix()
                                         : attribute.getName();
        if (*leading != u'x') {
            continue; // the most, and known at once
        }
        const std::u16string_view prefix = viewed(attribute.getPrefix());
        if (prefix == xercesc::XMLUni::fgXMLNSString) {
            m_prefixes.emplace_back(viewed(attribute.getName()));
        } else if (prefix.empty() && viewed(attribute.getName()) == xercesc::XMLUni::fgXMLNSString) {
            m_prefixes.emplace_back();
        } else {
            continue;
        }
        m_content->startPrefixMapping(m_prefixes.back().c_str(), attribute.getValue());
        ++mappings;
    }
    return mappings;
}

void EnvelopeReader::endPrefixMappings(std::uint32_t count) {
    for (; count > 0; --count) {
        m_content->endPrefixMapping(m_prefixes.back().c_str());
        m_prefixes.pop_back();
    }
}

void EnvelopeReader::docCharacters(const XMLCh* chars, const XMLSize_t length, const bool /*isCdata*/) {
    m_content->characters(chars, length);
}

void EnvelopeReader::ignorableWhitespace(const XMLCh* chars, const XMLSize_t length, const bool /*isCdata*/) {
    m_content->ignorableWhitespace(chars, length);
}

void EnvelopeReader::docComment(const XMLCh* text) {
    m_lexical->comment(text, viewed(text).size());
}

void EnvelopeReader::docPI(const XMLCh* target, const XMLCh* data) {
    m_content->processingInstruction(target, data);
}

void EnvelopeReader::startEntityReference(const xercesc::XMLEntityDecl& /*entity*/) {}
void EnvelopeReader::endEntityReference(const xercesc::XMLEntityDecl& /*entity*/) {}
void EnvelopeReader::XMLDecl(const XMLCh* /*version*/, const XMLCh* /*encoding*/, const XMLCh* /*standalone*/,
                             const XMLCh* /*autoEncoding*/) {}

void EnvelopeReader::error(const unsigned int /*code*/, const XMLCh* /*domain*/, const ErrTypes type,
                           const XMLCh* text, const XMLCh* systemId, const XMLCh* publicId,
                           const XMLFileLoc line, const XMLFileLoc column) {
    const xercesc::SAXParseException failure(text, publicId, systemId, line, column);
    switch (type) {
    case ErrType_Warning: m_errors->warning(failure); break;
    case ErrType_Error: m_errors->error(failure); break;
    default: m_errors->fatalError(failure); break;
    }
}

void EnvelopeReader::resetErrors() {}

} // namespace mrl::detail
