#include "TavelTK/detail/HttpMessageReader.h"

#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/ReplyType.h"

namespace mrl::detail {

namespace {

// What a parser leaves behind the end of its document is little; more is not worth a kept connection.
constexpr std::size_t s_drainBytes = 65536;
constexpr milliseconds s_drainTime{100};

} // namespace

HttpMessageReader::HttpMessageReader(Wire& wire, ReplyInput& in, std::optional<ReplyHead> head)
    : TavelTKMessageReader(1)
    , m_wire(wire)
    , m_in(in)
    , m_head(std::move(head))
    , m_isEarly(m_head.has_value()) {}

void HttpMessageReader::open() {
    if (m_envelope)
        return;
    HBL_ASSERT_NAMED(!m_body, "The reply could not be opened before.");
    if (!m_head)
        m_head = ReplyHead::read(m_in);
    m_body.emplace(m_in, *m_head);
    const ReplyType type = ReplyType::check(*m_head, *m_body, m_wire);
    if (type.isMultipart)
        m_parts.emplace(*m_body, m_wire, type.boundary, type.start);
    ByteSource& source = m_parts ? m_parts->envelope() : *m_body;
    const std::int64_t limit = m_wire.options().maxEnvelopeBytes;
    const auto refuse = [this, limit] {
        m_wire.fail(TavelTKError::replyTooLarge, TavelTKPhase::readReply,
                    "the envelope is longer than " + std::to_string(limit) + " bytes (max-envelope-bytes)");
    };
    if (limit > 0 && !m_parts && m_body->statedLength() > limit)
        refuse(); // rather than after the first part of it
    m_envelope.emplace(source, limit, refuse);
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
        m_next = Next::unknown;
        return m_attachment.emplace(*m_parts);
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
        if (m_body && !m_isEarly && !m_body->endsWithConnection() && m_head->keepsConnection() &&
            isDrained() && !m_in.hasLeftover())
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
