#include "HBLIDOM/HBLIDOM_Parser.h"

#include "HBLCore/HBLFailure.h"
#include "HBLIDOM/detail/DocumentInput.h"
#include "HBLIDOM/detail/DomAccess.h"
#include "HBLIDOM/detail/DomBuilder.h"
#include "HBLIDOM/detail/XmlLibrary.h"
#include "PLQStreams/PLQFileInputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQStreamError.h"

#include <optional>

using mrl::detail::DomRefusal;
using mrl::detail::limitExceeded;

namespace {

constexpr const char* PARSE = "HBLIDOM_Parser::parse";

} // namespace

int HBLIDOM_Parser::parse(const char* buffer, std::size_t size, HBLIDOM_Document& document) {
    HBL_ASSERT(buffer);
    PLQMemoryInputStream stream(buffer, size);
    return parse(stream, document);
}

int HBLIDOM_Parser::parse(const char* filename, HBLIDOM_Document& document) {
    HBL_ASSERT(filename);
    try {
        PLQFileInputStream stream(filename);
        return parse(stream, document);
    } catch (const PLQStreamError& e) {
        return refused({eUnreadable, I18NString(e.getText())});
    }
}

int HBLIDOM_Parser::parse(PLQInputStream& stream, HBLIDOM_Document& document) {
    try {
        mrl::detail::startXmlLibrary();
        mrl::detail::DocumentInput input(stream, m_limits);
        mrl::detail::DomBuilder builder(m_limits, m_options);
        std::optional<DomRefusal> refusal = builder.build(input);
        input.rethrowFailure(); // the document ended for the parser since there was no more to be had
        if (input.isTooLong()) {
            const auto place = refusal.value_or(DomRefusal{eLimit, I18NString()});
            refusal = {eLimit, limitExceeded("bytes of a document", "totalBytes", m_limits.totalBytes),
                       place.line, place.column};
        }
        if (refusal) {
            return refused(*refusal);
        }
        document = mrl::detail::DomAccess::adopt(builder.adoptDocument());
    } catch (...) {
        mrl::detail::xmlRethrowCurrent(PARSE, HBL_HERE);
    }
    refused({eNoError, I18NString()});
    return 1;
}

int HBLIDOM_Parser::refused(const DomRefusal& refusal) {
    m_errorCode = refusal.code;
    m_errorString = refusal.words;
    m_line = refusal.line;
    m_column = refusal.column;
    return 0;
}
