#pragma once

#include "TavelTK/TavelTKMessageReader.h"
#include "TavelTK/detail/HttpAttachmentReader.h"
#include "TavelTK/detail/ReplyBody.h"
#include "TavelTK/detail/ReplyHead.h"
#include "TavelTK/detail/ReplyInput.h"
#include "TavelTK/detail/ReplyParts.h"
#include "TavelTK/detail/SourceStream.h"

#include <optional>

namespace mrl::detail {

/// Reads one reply as it arrives. The first operation that needs the header waits for it.
class HttpMessageReader : public TavelTKMessageReader {
public:
    /// @param head of the reply, if it came before the request was sent as a whole.
    HttpMessageReader(Wire& wire, ReplyInput& in, std::optional<ReplyHead> head);

    void getEnvelope(HBLIDOM_Node& envelope) override;
    PLQInputStream& openEnvelope() override;
    void closeEnvelope(PLQInputStream& envelope) override;
    int canHaveAttachments() override;
    int hasMoreAttachments() override;
    TavelTKAttachmentReader& openNextAttachment() override;
    void closeAttachment(TavelTKAttachmentReader& attachment) override;
    const char* getHeader(const char* name) override;

    /// Ends the exchange: reads what little may be left, and keeps the connection if the reply was whole.
    void finish() noexcept;

private:
    void open();
    bool isDrained();

    Wire& m_wire;
    ReplyInput& m_in;
    std::optional<ReplyHead> m_head;
    const bool m_isEarly; // the peer still waits for the request
    std::optional<ReplyBody> m_body;
    std::optional<ReplyParts> m_parts; // of a multipart reply
    std::optional<SourceStream> m_envelope;
    std::optional<HttpAttachmentReader> m_attachment;
    enum class Next { unknown, part, none } m_next = Next::unknown; // whether one more part follows
};

} // namespace mrl::detail
