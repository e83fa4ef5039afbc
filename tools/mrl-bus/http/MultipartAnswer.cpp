#include "http/MultipartAnswer.h"

#include <ostream>

namespace mrl::bus {

namespace {

constexpr const char* envelopeId = "envelope@mrl-bus";

}

std::string MultipartAnswer::contentType() const {
    return std::string("multipart/related; type=\"text/xml\"; start=\"<") + envelopeId + ">\"; boundary=\"" +
           m_boundary + "\"";
}

void MultipartAnswer::startPart(std::ostream& out, const std::string& contentType, const std::string& id,
                                bool compressed) const {
    out << "--" << m_boundary << "\r\nContent-Type: " << contentType
        << "\r\nContent-Transfer-Encoding: binary\r\n";
    if (compressed)
        out << "Content-Encoding: gzip\r\n";
    out << "Content-ID: <" << id << ">\r\n\r\n";
}

void MultipartAnswer::write(std::ostream& out) const {
    startPart(out, "text/xml; charset=utf-8", envelopeId, false);
    out << m_answer.envelope << "\r\n";
    for (const Attachment& attachment : m_answer.attachments) {
        startPart(out, attachment.contentType, attachment.id, attachment.compressed);
        out.write(attachment.bytes.data(), static_cast<std::streamsize>(attachment.bytes.size()));
        out << "\r\n";
    }
    out << "--" << m_boundary << "--\r\n";
}

} // namespace mrl::bus
