#pragma once

#include "serialization/detail/EnvelopeAttributes.h"
#include "serialization/detail/NamespaceScope.h"
#include "serialization/detail/ParserMemory.h"

#include <xercesc/framework/XMLDocumentHandler.hpp>
#include <xercesc/framework/XMLErrorReporter.hpp>
#include <xercesc/util/XercesDefs.hpp>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

XERCES_CPP_NAMESPACE_BEGIN
class ContentHandler;
class ErrorHandler;
class GrammarResolver;
class InputSource;
class LexicalHandler;
XERCES_CPP_NAMESPACE_END

namespace mrl::detail {

class EnvelopeScanner;

/// A parser of envelopes: SAX2 events straight from the XML library's scanner for well-formed documents,
/// which knows nothing of grammars and is the fastest of its scanners. It never looks outside the
/// document, and refuses document types, over which that scanner would pass without a word. Namespaces are
/// resolved here: a name costs a look at the last place it was seen, where the scanner would take it apart
/// anew. One document at a time; fit for any number, one after the other, also after a failure.
class EnvelopeReader final : public xercesc::XMLDocumentHandler, public xercesc::XMLErrorReporter {
public:
    EnvelopeReader();
    ~EnvelopeReader() override;
    EnvelopeReader(const EnvelopeReader&) = delete;
    EnvelopeReader& operator=(const EnvelopeReader&) = delete;

    /// What the document's stream should take for what the parser owns.
    xercesc::MemoryManager& memory() { return m_memory; }

    /// Parses the document of `source`. All are borrowed for the time of the call.
    /// @param handler content and errors; also told of comments.
    template <class Handler>
    void parse(const xercesc::InputSource& source, Handler& handler) {
        run(source, handler, handler, handler);
    }

    // From the scanner
    void startDocument() override;
    void endDocument() override;
    void resetDocument() override;
    void startElement(const xercesc::XMLElementDecl& element, const unsigned int uriId, const XMLCh* prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, const XMLSize_t count,
                      const bool isEmpty, const bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& element, const unsigned int uriId, const bool isRoot,
                    const XMLCh* prefix) override;
    void docCharacters(const XMLCh* chars, const XMLSize_t length, const bool isCdata) override;
    void ignorableWhitespace(const XMLCh* chars, const XMLSize_t length, const bool isCdata) override;
    void docComment(const XMLCh* text) override;
    void docPI(const XMLCh* target, const XMLCh* data) override;
    void startEntityReference(const xercesc::XMLEntityDecl& entity) override;
    void endEntityReference(const xercesc::XMLEntityDecl& entity) override;
    void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone,
                 const XMLCh* autoEncoding) override;

    void error(const unsigned int code, const XMLCh* domain, const ErrTypes type, const XMLCh* text,
               const XMLCh* systemId, const XMLCh* publicId, const XMLFileLoc line,
               const XMLFileLoc column) override;
    void resetErrors() override;

private:
    void run(const xercesc::InputSource& source, xercesc::ContentHandler& content,
             xercesc::LexicalHandler& lexical, xercesc::ErrorHandler& errors);
    using Attributes = xercesc::RefVectorOf<xercesc::XMLAttr>;

    /// A qualified name taken apart. Both texts live as long as the scanner's own of that name.
    struct Name {
        const XMLCh* uri = nullptr;
        const XMLCh* localName = nullptr;
    };
    struct OpenElement {
        Name name;
        std::uint32_t prefixes; // declared by it
    };
    /// What was made of an element's name while the scope was the same.
    struct KnownElement {
        const xercesc::XMLElementDecl* declaration = nullptr;
        std::uint64_t generation = 0;
        Name name;
    };
    /// The same for an attribute, whose text the scanner does not keep.
    struct KnownAttribute {
        std::u16string qName;
        std::uint64_t generation = 0;
        const XMLCh* uri = nullptr;
        std::size_t localName = 0; // where it begins
    };

    std::uint32_t takeAttributes(const Attributes& attributes, XMLSize_t count);
    std::uint32_t declarePrefixes();
    void declarePrefix(std::u16string_view prefix, const XMLCh* uri);
    void leavePrefixes(std::uint32_t count);
    Name nameOf(const xercesc::XMLElementDecl& element);
    void resolveAttributes();
    Name attributeName(const XMLCh* qName, std::size_t index);
    const XMLCh* resolve(std::u16string_view qName, std::size_t colon);
    [[noreturn]] void refuse(std::u16string_view name, const char16_t* why);

    ParserMemory m_memory;
    std::unique_ptr<xercesc::GrammarResolver> m_grammars; // none; the scanner keeps its names there
    std::unique_ptr<EnvelopeScanner> m_scanner;
    xercesc::ContentHandler* m_content = nullptr; // these three while a document is read
    xercesc::LexicalHandler* m_lexical = nullptr;
    xercesc::ErrorHandler* m_errors = nullptr;
    NamespaceScope m_scope;
    EnvelopeAttributes m_attributes;
    std::vector<OpenElement> m_open;
    std::array<KnownElement, 64> m_elements;
    std::array<KnownAttribute, 4> m_knownAttributes; // by place
};

} // namespace mrl::detail
