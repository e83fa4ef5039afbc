#include "http/HttpMessage.h"

#include <Poco/Net/MediaType.h>
#include <Poco/String.h>

namespace mrl::bus {

namespace {

bool isXml(const std::string& contentType) {
    return Poco::Net::MediaType(contentType).matches("text", "xml");
}

} // namespace

bool HttpMessage::reads(const std::string& contentType) {
    const Poco::Net::MediaType type(contentType);
    return type.matches("text", "xml") || type.matches("multipart", "related");
}

HttpMessage::HttpMessage(PLQInputStream& body, const std::string& contentType)
    : TavelTKMessageReader(1)
    , m_body(body) {
    const Poco::Net::MediaType type(contentType);
    if (!type.matches("multipart", "related"))
        return;
    m_parts.emplace(body, type.hasParameter("boundary") ? type.getParameter("boundary") : std::string());
    if (type.hasParameter("start"))
        m_start = type.getParameter("start");
}

PLQInputStream& HttpMessage::openEnvelope() {
    if (!m_parts)
        return m_body;
    if (!m_parts->next() || !isXml(getContentType()) || (!m_start.empty() && m_start != getContentID()))
        throw Unreadable("the first part has to be the envelope, of the type text/xml");
    checkEncoding();
    return m_partStream;
}

int HttpMessage::hasMoreAttachments() {
    if (!m_onAttachment && m_parts)
        m_onAttachment = m_parts->next();
    return m_onAttachment ? 1 : 0;
}

TavelTKAttachmentReader& HttpMessage::openNextAttachment() {
    if (hasMoreAttachments() == 0)
        throw Unreadable("there is no further part");
    m_onAttachment = false;
    checkEncoding();
    return *this;
}

int HttpMessage::isGzipped() {
    return Poco::icompare(std::string(header("content-encoding")), "gzip") == 0 ? 1 : 0;
}

void HttpMessage::checkEncoding() const {
    const std::string transfer = Poco::toLower(std::string(header("content-transfer-encoding")));
    const std::string coding = Poco::toLower(std::string(header("content-encoding")));
    if ((!transfer.empty() && transfer != "binary" && transfer != "8bit" && transfer != "7bit") ||
        (!coding.empty() && coding != "gzip" && coding != "identity"))
        throw Unreadable("a part comes as it is, or with Content-Encoding: gzip; not in " +
                         (coding.empty() ? transfer : coding).substr(0, 40));
}

const char* HttpMessage::header(std::string_view name) const {
    const auto found = m_parts->headers().find(name);
    return found == m_parts->headers().end() ? "" : found->second.c_str();
}

void HttpMessage::getEnvelope(HBLIDOM_Node& /*envelope*/) {
    throw std::logic_error("the bus reads envelopes as streams");
}

const char* HttpMessage::getHeader(const char* name) {
    const char* value = m_parts ? header(Poco::toLower(std::string(name))) : "";
    return *value == '\0' ? nullptr : value;
}

} // namespace mrl::bus
