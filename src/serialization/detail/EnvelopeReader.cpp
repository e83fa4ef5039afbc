#include "serialization/detail/EnvelopeReader.h"

#include "serialization/detail/TextMap.h"
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
constexpr XMLSize_t textPiece = XMLSize_t{64} * 1024;

constexpr std::u16string_view xmlns = u"xmlns";

std::u16string_view viewed(const XMLCh* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

} // namespace

/// The scanner, which skips document types, taught to refuse them.
class EnvelopeScanner final : public xercesc::WFXMLScanner {
public:
    EnvelopeScanner(EnvelopeReader& reader, xercesc::GrammarResolver& grammars, ParserMemory& memory)
        : WFXMLScanner(&reader, nullptr, nullptr, &reader, nullptr, &grammars, &memory) {
        setURIStringPool(grammars.getStringPool());
        setDoNamespaces(false); // the reader does them
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
    : m_grammars(std::make_unique<xercesc::GrammarResolver>(nullptr, &m_memory))
    , m_scanner(std::make_unique<EnvelopeScanner>(*this, *m_grammars, m_memory)) {}

EnvelopeReader::~EnvelopeReader() = default;

void EnvelopeReader::run(const xercesc::InputSource& source, xercesc::ContentHandler& content,
                         xercesc::LexicalHandler& lexical, xercesc::ErrorHandler& errors) {
    m_content = &content;
    m_lexical = &lexical;
    m_errors = &errors;
    m_scope.reset(); // what a document that failed has left
    m_open.clear();
    m_scanner->scanDocument(source);
}

void EnvelopeReader::startDocument() {
    m_content->startDocument();
}

void EnvelopeReader::endDocument() {
    m_content->endDocument();
}

void EnvelopeReader::resetDocument() {}

void EnvelopeReader::startElement(const xercesc::XMLElementDecl& element, const unsigned int /*uriId*/,
                                  const XMLCh* /*prefix*/,
                                  const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes,
                                  const XMLSize_t count, const bool isEmpty, const bool /*isRoot*/) {
    const std::uint32_t prefixes = takeAttributes(attributes, count);
    const Name name = nameOf(element);
    resolveAttributes();
    m_content->startElement(name.uri, name.localName, element.getFullName(), m_attributes);
    if (isEmpty) { // the scanner sends no end
        m_content->endElement(name.uri, name.localName, element.getFullName());
        leavePrefixes(prefixes);
    } else {
        m_open.push_back({name, prefixes});
    }
}

void EnvelopeReader::endElement(const xercesc::XMLElementDecl& element, const unsigned int /*uriId*/,
                                const bool /*isRoot*/, const XMLCh* /*prefix*/) {
    const OpenElement open = m_open.back();
    m_open.pop_back();
    m_content->endElement(open.name.uri, open.name.localName, element.getFullName());
    leavePrefixes(open.prefixes);
}

/// @return how many of the attributes are declarations.
std::uint32_t EnvelopeReader::takeAttributes(const Attributes& attributes, XMLSize_t count) {
    bool mayDeclare = false;
    m_attributes.clear();
    for (XMLSize_t i = 0; i < count; ++i) {
        const xercesc::XMLAttr& attribute = *attributes.elementAt(i);
        const XMLCh* const name = attribute.getName();
        mayDeclare = mayDeclare || (name[0] == u'x' && name[1] == u'm'); // few do, and are known at once
        m_attributes.add({nullptr, nullptr, name, attribute.getValue()});
    }
    return mayDeclare ? declarePrefixes() : 0;
}

std::uint32_t EnvelopeReader::declarePrefixes() {
    std::uint32_t declared = 0;
    for (const EnvelopeAttributes::Attribute& attribute : m_attributes.all()) {
        const std::u16string_view name(attribute.qName);
        if (name == xmlns) {
            declarePrefix({}, attribute.value);
        } else if (name.starts_with(xmlns) && name[xmlns.size()] == u':') {
            declarePrefix(name.substr(xmlns.size() + 1), attribute.value);
        } else {
            continue;
        }
        ++declared;
    }
    return declared;
}

void EnvelopeReader::declarePrefix(std::u16string_view prefix, const XMLCh* uri) {
    const std::u16string_view text(uri);
    const bool isXml = prefix == u"xml";
    if (prefix.find(u':') != std::u16string_view::npos) {
        refuse(prefix, u"is no prefix of a namespace.");
    }
    if (prefix == xmlns || isXml != (text == xercesc::XMLUni::fgXMLURIName) ||
        text == xercesc::XMLUni::fgXMLNSURIName) {
        refuse(prefix, u"is declared as a prefix, or for a namespace, that is reserved.");
    }
    if (text.empty() && !prefix.empty()) {
        refuse(prefix, u"is declared as the prefix of no namespace.");
    }
    const XMLCh* const kept = m_scope.declare(prefix, text);
    m_content->startPrefixMapping(std::u16string(prefix).c_str(), kept);
}

void EnvelopeReader::leavePrefixes(std::uint32_t count) {
    for (; count > 0; --count) {
        m_content->endPrefixMapping(m_scope.leave().c_str());
    }
}

EnvelopeReader::Name EnvelopeReader::nameOf(const xercesc::XMLElementDecl& element) {
    const auto place = reinterpret_cast<std::uintptr_t>(&element) / alignof(xercesc::XMLElementDecl);
    KnownElement& known = m_elements[place % m_elements.size()];
    if (known.declaration != &element || known.generation != m_scope.generation()) {
        const XMLCh* const qName = element.getFullName();
        const std::u16string_view text(qName);
        const std::size_t colon = text.find(u':');
        const bool isPlain = colon == std::u16string_view::npos;
        known = {&element,
                 m_scope.generation(),
                 {isPlain ? m_scope.find({}) : resolve(text, colon), isPlain ? qName : qName + colon + 1}};
    }
    return known.name;
}

void EnvelopeReader::resolveAttributes() {
    const std::span<EnvelopeAttributes::Attribute> attributes = m_attributes.all();
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const Name name = attributeName(attributes[i].qName, i);
        attributes[i].uri = name.uri;
        attributes[i].localName = name.localName;
    }
    if (attributes.size() > 1 && m_scope.hasAliases() && m_attributes.hasRepeated()) {
        refuse(attributes.front().qName, u"stands in an element with an attribute given twice.");
    }
}

EnvelopeReader::Name EnvelopeReader::attributeName(const XMLCh* qName, std::size_t index) {
    KnownAttribute& known = m_knownAttributes[index % m_knownAttributes.size()];
    if (known.generation != m_scope.generation() || !isText(qName, known.qName)) {
        const std::u16string_view text(qName);
        const std::size_t colon = text.find(u':');
        const bool isPlain = colon == std::u16string_view::npos;
        if (isPlain) { // no namespace, whatever the default
            known.uri = text == xmlns ? xercesc::XMLUni::fgXMLNSURIName : xercesc::XMLUni::fgZeroLenString;
        } else {
            known.uri = text.starts_with(xmlns) && colon == xmlns.size() ? xercesc::XMLUni::fgXMLNSURIName
                                                                         : resolve(text, colon);
        }
        known.localName = isPlain ? 0 : colon + 1;
        known.qName = text;
        known.generation = m_scope.generation();
    }
    return {known.uri, qName + known.localName};
}

/// The namespace of a name with a prefix.
const XMLCh* EnvelopeReader::resolve(std::u16string_view qName, std::size_t colon) {
    if (colon == 0 || colon + 1 == qName.size() || qName.find(u':', colon + 1) != std::u16string_view::npos) {
        refuse(qName, u"is no qualified name.");
    }
    const XMLCh* const uri = m_scope.find(qName.substr(0, colon));
    if (uri == nullptr) {
        refuse(qName, u"has a prefix that is not declared.");
    }
    return uri;
}

void EnvelopeReader::refuse(std::u16string_view name, const char16_t* why) {
    std::u16string text = u"The name '";
    text.append(name).append(u"' ").append(why);
    const xercesc::Locator& place = *m_scanner->getLocator();
    m_errors->fatalError(xercesc::SAXParseException(text.c_str(), place));
    throw xercesc::SAXParseException(text.c_str(), place); // whatever the handler does
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
