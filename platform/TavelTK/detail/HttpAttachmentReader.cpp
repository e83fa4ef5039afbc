#include "TavelTK/detail/HttpAttachmentReader.h"

#include <climits>

namespace mrl::detail {

HttpAttachmentReader::HttpAttachmentReader(ByteSource& part, Headers headers)
    : m_headers(std::move(headers))
    , m_stream(part, 0, {}) {}

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
    const std::int64_t length = parseLength(textOf("Content-Length"));
    return length > INT_MAX ? -1 : static_cast<int>(length);
}

const char* HttpAttachmentReader::getHeader(const char* name) {
    const std::string* const value = name ? m_headers.find(name) : nullptr;
    return value ? value->c_str() : nullptr;
}

int HttpAttachmentReader::isGzipped() {
    const std::string_view coding = textOf("Content-Encoding");
    return sameText(coding, "gzip") || sameText(coding, "x-gzip") ? 1 : 0;
}

} // namespace mrl::detail
