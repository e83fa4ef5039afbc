#pragma once

#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM_ParserLimits.h"

#include <xercesc/parsers/XercesDOMParser.hpp>

#include <cstdint>
#include <optional>
#include <string>

class PLQInputStream;

namespace mrl::detail {

/// Why a document is refused.
struct DomRefusal {
    int code; ///< HBLIDOM_Parser::ErrorCode
    I18NString words;
    int line = 0; ///< 0 for none
    int column = 0;
};

/// The words for a document that exceeds a limit.
std::string limitExceeded(const char* what, const char* limit, std::uint64_t value);

/// Builds one document, and stops at the first thing in it that may not be.
class DomBuilder final : public xercesc::XercesDOMParser {
public:
    /// @param limits borrowed.
    /// @param options of HBLIDOM_Parser.
    DomBuilder(const HBLIDOM_ParserLimits& limits, int options);
    ~DomBuilder() override;

    /// @return nothing when the document is complete; adoptDocument() gives it then.
    std::optional<DomRefusal> build(PLQInputStream& input);

    // Events; what refuses throws DomRefusal
    void doctypeDecl(const xercesc::DTDElementDecl& root, const XMLCh* publicId, const XMLCh* systemId,
                     bool hasIntSubset, bool hasExtSubset) override;
    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, const XMLCh* prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount,
                      bool isEmpty, bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int uriId, bool isRoot,
                    const XMLCh* prefix) override;
    void docCharacters(const XMLCh* chars, XMLSize_t length, bool isCdata) override;
    void docComment(const XMLCh* text) override;
    void docPI(const XMLCh* target, const XMLCh* data) override;
    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* identifier) override;
    void error(unsigned int code, const XMLCh* domain, xercesc::XMLErrorReporter::ErrTypes type,
               const XMLCh* text, const XMLCh* systemId, const XMLCh* publicId, XMLFileLoc line,
               XMLFileLoc column) override;

private:
    void countNodes(std::uint64_t more);
    void keepPlace();
    [[noreturn]] void refuseTooMany(const char* what, const char* limit, std::uint64_t value) const;
    /// Only while parsing: there is no place before and behind.
    DomRefusal here(int code, const std::string& words) const;

    const HBLIDOM_ParserLimits& m_limits;
    const bool m_passOverDocumentType;
    const bool m_keepPlaces;
    std::uint32_t m_depth = 0;
    std::uint64_t m_nodes = 0;
};

} // namespace mrl::detail
