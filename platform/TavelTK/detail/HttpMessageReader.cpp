#include "TavelTK/detail/HttpMessageReader.h"

#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/ReplyType.h"

namespace mrl::detail {

namespace {

// What a parser leaves behind the end of its document is little; more is not worth a kept connection.
constexpr std::size_t s_drainBytes = 65536;
constexpr milliseconds s_drainTime{100};

/// A content id without the angle brackets that some peers leave out.
std::string_view bare(std::string_view id) {
    const bool isFramed = id.size() >= 2 && id.front() == '<' && id.back() == '>';
    return isFramed ? id.substr(1, id.size() - 2) : id;
}

} // namespace

HttpMessageReader::HttpMessageReader(Wire& wire)
    : TavelTKMessageReader(1)
    , m_wire(wire)
    , m_in(wire) {}

void HttpMessageReader::open() {
    if (m_envelope)
        return;
    HBL_ASSERT_NAMED(!m_body, "The reply could not be opened before.");
    m_head = ReplyHead::read(m_in);
    m_body.emplace(m_in, *m_head);
    const ReplyType type = ReplyType::check(*m_head, *m_body, m_wire);
    if (type.isMultipart)
        openMultipart(type.boundary, type.start);
    ByteSource& source = m_part ? static_cast<ByteSource&>(*m_part) : *m_body;
    const std::int64_t limit = m_wire.options().maxEnvelopeBytes;
    const auto refuse = [this, limit] {
        m_wire.fail(TavelTKError::replyTooLarge, TavelTKPhase::readReply,
                    "the envelope is longer than " + std::to_string(limit) + " bytes (max-envelope-bytes)");
    };
    if (limit > 0 && !m_part && m_body->statedLength() > limit)
        refuse(); // rather than after the first part of it
    m_envelope.emplace(source, limit, refuse);
}

void HttpMessageReader::openMultipart(std::string_view boundary, const std::string& start) {
    const SessionOptions& options = m_wire.options();
    // The envelope is a part too, and no attachment.
    const std::int64_t maxParts = options.maxParts == 0 ? 0 : options.maxParts + 1;
    m_parts.emplace(*m_body, boundary, options.maxHeaderBytes, maxParts,
                    [this](MultipartReader::Fault fault, const std::string& cause) {
                        if (fault == MultipartReader::Fault::endsTooSoon && m_body->endsWithConnection())
                            m_wire.broke(cause);
                        m_wire.fail(fault == MultipartReader::Fault::tooLarge ? TavelTKError::replyTooLarge
                                                                              : TavelTKError::badMultipart,
                                    TavelTKPhase::readReply, cause);
                    });
    m_part.emplace(*m_parts);
    if (!m_parts->next())
        m_wire.fail(TavelTKError::badMultipart, TavelTKPhase::readReply, "it has no parts");
    const Headers& headers = m_parts->headers();
    const std::string* const id = headers.find("Content-ID");
    if (!start.empty() && (!id || bare(*id) != bare(start)))
        m_wire.fail(TavelTKError::unsupported, TavelTKPhase::readReply,
                    "the envelope '" + printable(start) + "' is not the first part of the multipart reply");
    const std::string* const type = headers.find("Content-Type");
    if (!type || !ReplyType::checkXml(*type, m_wire))
        m_wire.fail(TavelTKError::notSoapReply, TavelTKPhase::readReply,
                    "the first part's content type is " +
                        (type ? "'" + printable(*type) + "'" : "not stated"));
}

PLQInputStream& HttpMessageReader::openEnvelope() {
    return hblRethrowing("TavelTKMessageReader::openEnvelope", [&]() -> PLQInputStream& {
        open();
        return *m_envelope;
    });
}

void HttpMessageReader::closeEnvelope(PLQInputStream&) {}

int HttpMessageReader::canHaveAttachments() {
    return hblRethrowing("TavelTKMessageReader::canHaveAttachments", [&] {
        open();
        return m_parts ? 1 : 0;
    });
}

int HttpMessageReader::hasMoreAttachments() {
    if (!canHaveAttachments())
        return 0;
    HBL_ASSERT_NAMED(!m_attachment, "An attachment is still open.");
    return hblRethrowing("TavelTKMessageReader::hasMoreAttachments", [&] {
        if (m_next == Next::unknown)
            m_next = m_parts->next() ? Next::part : Next::none;
        return m_next == Next::part ? 1 : 0;
    });
}

TavelTKAttachmentReader& HttpMessageReader::openNextAttachment() {
    HBL_ASSERT_NAMED(hasMoreAttachments(), "There are no more attachments.");
    return hblRethrowing("TavelTKMessageReader::openNextAttachment", [&]() -> TavelTKAttachmentReader& {
        const std::string* const coding = m_parts->headers().find("Content-Transfer-Encoding");
        if (coding && !sameText(*coding, "binary") && !sameText(*coding, "8bit") &&
            !sameText(*coding, "7bit"))
            m_wire.fail(TavelTKError::unsupported, TavelTKPhase::readReply,
                        "the content transfer encoding '" + printable(*coding) + "' of an attachment");
        m_next = Next::unknown;
        return m_attachment.emplace(*m_part, m_parts->headers());
    });
}

void HttpMessageReader::closeAttachment(TavelTKAttachmentReader&) {
    m_attachment.reset();
}

const char* HttpMessageReader::getHeader(const char* name) {
    return hblRethrowing("TavelTKMessageReader::getHeader", [&]() -> const char* {
        open();
        const std::string* const value = name ? m_head->headers.find(name) : nullptr;
        return value ? value->c_str() : nullptr;
    });
}

bool HttpMessageReader::isDrained() {
    char unwanted[4096];
    m_wire.hurry(s_drainTime);
    for (std::size_t drained = 0; !m_body->atEnd() && drained < s_drainBytes;)
        drained += m_body->read(unwanted, sizeof unwanted);
    return m_body->atEnd();
}

void HttpMessageReader::finish() noexcept {
    try {
        if (m_body && !m_body->endsWithConnection() && m_head->keepsConnection() && isDrained() &&
            !m_in.hasLeftover())
            return m_wire.keepConnection();
    } catch (...) {
        // The reply is over for its reader; what is wrong with its rest only costs the connection.
    }
    m_wire.closeConnection();
}

void HttpMessageReader::getEnvelope(HBLIDOM_Node&) {
    m_wire.fail(TavelTKError::unsupported, TavelTKPhase::readReply,
                "getEnvelope() is not offered; read the stream of openEnvelope()");
}

} // namespace mrl::detail
