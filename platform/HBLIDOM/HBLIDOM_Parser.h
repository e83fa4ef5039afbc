#pragma once

#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM_Document.h"
#include "HBLIDOM/HBLIDOM_ParserLimits.h"

#include <cstddef>

class PLQInputStream;

namespace mrl::detail {
struct DomRefusal;
} // namespace mrl::detail

/// Makes a document from XML, which may come from anyone: nothing outside of it is ever read, a document
/// type declaration is refused (and with it every entity), and its size is limited. Knows namespaces,
/// does not validate, keeps comments, CDATA sections and white space. One parse at a time.
class MRL_EXPORT HBLIDOM_Parser {
public:
    /// What getErrorCode() is.
    enum ErrorCode : int {
        eNoError = 0,
        eMalformed = 1,    ///< it is not XML
        eDocumentType = 2, ///< it has a document type declaration, or refers to the outside
        eLimit = 3,        ///< it exceeds one of the limits
        eUnreadable = 4,   ///< the file cannot be read
    };

    enum Option : int {
        /// Passes over a document type declaration that has no declarations of its own ("internal
        /// subset"). What it refers to is not read, and an entity of it is eMalformed.
        ePassOverDocumentType = 1,
        /// Elements know where they stood: HBLIDOM_Element::getLineNumber().
        eKeepPlaces = 2,
    };

    /// @param options 0 or a sum of Option.
    explicit HBLIDOM_Parser(int options = 0)
        : m_options(options) {}

    const HBLIDOM_ParserLimits& getLimits() const { return m_limits; }
    void setLimits(const HBLIDOM_ParserLimits& limits) { m_limits = limits; }

    /// Parses memory, a stream to its end, or a file.
    /// @param document receives the result; unchanged when there is none.
    /// @return 1, or 0 for a document that is refused: the operations below tell why.
    /// @throws HBLAssertError for null; whatever the stream throws; HBLOutOfMemoryError.
    int parse(const char* buffer, std::size_t size, HBLIDOM_Document& document);
    int parse(PLQInputStream& stream, HBLIDOM_Document& document);
    int parse(const char* filename, HBLIDOM_Document& document);

    /// One of ErrorCode, of the last parse.
    int getErrorCode() const noexcept { return m_errorCode; }
    /// What is wrong, in words; empty for eNoError.
    const I18NString& errorString() const noexcept { return m_errorString; }
    /// Where, from 1 on; 0 when there is no such place.
    int getCurrentLineNumber() const noexcept { return m_line; }
    int getCurrentColumnNumber() const noexcept { return m_column; }

private:
    int refused(const mrl::detail::DomRefusal& refusal);

    int m_options;
    HBLIDOM_ParserLimits m_limits;
    int m_errorCode = eNoError;
    I18NString m_errorString;
    int m_line = 0;
    int m_column = 0;
};
