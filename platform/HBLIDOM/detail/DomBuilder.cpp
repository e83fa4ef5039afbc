#include "HBLIDOM/detail/DomBuilder.h"

#include "HBLIDOM/HBLIDOM_Parser.h"
#include "HBLIDOM/detail/DomPlace.h"
#include "PLQStreams/PLQStreamInputSource.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/validators/DTD/DTDElementDecl.hpp>

#include <algorithm>
#include <limits>
#include <string>

namespace mrl::detail {

namespace {

/// A place in a file; beyond the range of an int, its end.
int narrowed(XMLFileLoc place) {
    return static_cast<int>(std::min<XMLFileLoc>(place, std::numeric_limits<int>::max()));
}

} // namespace

std::string limitExceeded(const char* what, const char* limit, std::uint64_t value) {
    return std::string("The ") + what + " exceed the limit of " + std::to_string(value) +
           " (HBLIDOM_ParserLimits::" + limit + ").";
}

DomBuilder::DomBuilder(const HBLIDOM_ParserLimits& limits, int options)
    : m_limits(limits)
    , m_passOverDocumentType((options & HBLIDOM_Parser::ePassOverDocumentType) != 0)
    , m_keepPlaces((options & HBLIDOM_Parser::eKeepPlaces) != 0) {
    setValidationScheme(Val_Never);
    setDoSchema(false);
    setDoNamespaces(true);
    setLoadExternalDTD(false);
    setDisableDefaultEntityResolution(true);
    setCreateEntityReferenceNodes(false);
    getScanner()->setErrorReporter(this);
    getScanner()->setEntityHandler(this);
}

DomBuilder::~DomBuilder() = default;

std::optional<DomRefusal> DomBuilder::build(PLQInputStream& input) {
    try {
        parse(PLQStreamInputSource(input));
    } catch (const DomRefusal& refusal) {
        return refusal;
    } catch (const xercesc::XMLException& e) {
        return DomRefusal{HBLIDOM_Parser::eMalformed, I18NString(e.getMessage())};
    }
    if (getDocument() == nullptr || getDocument()->getDocumentElement() == nullptr) { // without an event
        return DomRefusal{HBLIDOM_Parser::eMalformed, "The document is empty."};
    }
    return std::nullopt;
}

void DomBuilder::doctypeDecl(const xercesc::DTDElementDecl& root, const XMLCh* /*publicId*/,
                             const XMLCh* /*systemId*/, bool hasIntSubset, bool /*hasExtSubset*/) {
    if (hasIntSubset || !m_passOverDocumentType) {
        throw here(HBLIDOM_Parser::eDocumentType, "A document type declaration, here of \"" +
                                                      I18NString(root.getFullName()).toUtf8() +
                                                      "\", is not allowed.");
    }
    getScanner()->setHasNoDTD(true); // or references to entities of its would vanish without a word
}

xercesc::InputSource* DomBuilder::resolveEntity(xercesc::XMLResourceIdentifier* identifier) {
    throw here(HBLIDOM_Parser::eDocumentType, "A reference to the outside, here to \"" +
                                                  I18NString(identifier->getSystemId()).toUtf8() +
                                                  "\", is not allowed.");
}

void DomBuilder::startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId,
                              const XMLCh* prefix, const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                              XMLSize_t attributeCount, bool isEmpty, bool isRoot) {
    if (++m_depth > m_limits.elementDepth) {
        refuseTooMany("elements within elements", "elementDepth", m_limits.elementDepth);
    }
    if (attributeCount > m_limits.attributesOfElement) {
        refuseTooMany("attributes of an element", "attributesOfElement", m_limits.attributesOfElement);
    }
    countNodes(1 + attributeCount);
    XercesDOMParser::startElement(declaration, uriId, prefix, attributes, attributeCount, isEmpty, isRoot);
    if (m_keepPlaces) {
        keepPlace();
    }
}

void DomBuilder::keepPlace() {
    const xercesc::Locator& place = *getScanner()->getLocator();
    setPlace(*fCurrentNode, narrowed(place.getLineNumber()), narrowed(place.getColumnNumber()));
}

void DomBuilder::endElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot,
                            const XMLCh* prefix) {
    --m_depth; // an empty element comes here too, by way of its start
    XercesDOMParser::endElement(declaration, uriId, isRoot, prefix);
}

void DomBuilder::docCharacters(const XMLCh* chars, XMLSize_t length, bool isCdata) {
    countNodes(1);
    XercesDOMParser::docCharacters(chars, length, isCdata);
}

void DomBuilder::docComment(const XMLCh* text) {
    countNodes(1);
    XercesDOMParser::docComment(text);
}

void DomBuilder::docPI(const XMLCh* target, const XMLCh* data) {
    countNodes(1);
    XercesDOMParser::docPI(target, data);
}

void DomBuilder::error(unsigned int /*code*/, const XMLCh* /*domain*/,
                       xercesc::XMLErrorReporter::ErrTypes type, const XMLCh* text, const XMLCh* /*systemId*/,
                       const XMLCh* /*publicId*/, XMLFileLoc line, XMLFileLoc column) {
    if (type != xercesc::XMLErrorReporter::ErrType_Warning) {
        throw DomRefusal{HBLIDOM_Parser::eMalformed, I18NString(text), narrowed(line), narrowed(column)};
    }
}

void DomBuilder::countNodes(std::uint64_t more) {
    m_nodes += more;
    if (m_nodes > m_limits.totalNodes) {
        refuseTooMany("nodes of a document", "totalNodes", m_limits.totalNodes);
    }
}

DomRefusal DomBuilder::here(int code, const std::string& words) const {
    const xercesc::Locator& place = *getScanner()->getLocator();
    return {code, I18NString(words), narrowed(place.getLineNumber()), narrowed(place.getColumnNumber())};
}

void DomBuilder::refuseTooMany(const char* what, const char* limit, std::uint64_t value) const {
    throw here(HBLIDOM_Parser::eLimit, limitExceeded(what, limit, value));
}

} // namespace mrl::detail
