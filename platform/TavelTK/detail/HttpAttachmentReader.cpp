#include "TavelTK/detail/HttpAttachmentReader.h"

#include <climits>

namespace mrl::detail {

HttpAttachmentReader::HttpAttachmentReader(ReplyParts& parts)
    : m_headers(parts.headers())
    , m_isDecoded(parts.isDecoded())
    , m_isInflated(parts.isInflated())
    , m_stream(parts.source(), 0, {}) {}

const char* HttpAttachmentReader::textOf(const char* name) const {
    const std::string* const value = m_headers.find(name);
    return value ? value->c_str() : "";
}

const char* HttpAttachmentReader::getContentID() {
    return textOf("Content-ID");
}

const char* HttpAttachmentReader::getContentType() {
    return textOf("Content-Type");
}

int HttpAttachmentReader::getContentLength() {
    if (m_isDecoded)
        return -1; // what is stated counts the coded bytes
    const std::int64_t length = parseLength(textOf("Content-Length"));
    return length > INT_MAX ? -1 : static_cast<int>(length);
}

const char* HttpAttachmentReader::getHeader(const char* name) {
    const std::string* const value = name ? m_headers.find(name) : nullptr;
    return value ? value->c_str() : nullptr;
}

int HttpAttachmentReader::isGzipped() {
    if (m_isInflated)
        return 0;
    const std::string_view coding = textOf("Content-Encoding");
    return sameText(coding, "gzip") || sameText(coding, "x-gzip") ? 1 : 0;
}

} // namespace mrl::detail
