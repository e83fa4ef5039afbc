#pragma once

#include "TavelTK/TavelTKMessageReader.h"
#include "TavelTK/detail/HttpAttachmentReader.h"
#include "TavelTK/detail/MultipartReader.h"
#include "TavelTK/detail/ReplyBody.h"
#include "TavelTK/detail/ReplyHead.h"
#include "TavelTK/detail/ReplyInput.h"
#include "TavelTK/detail/SourceStream.h"

#include <optional>

namespace mrl::detail {

/// Reads one reply as it arrives. The first operation that needs the header waits for it.
class HttpMessageReader : public TavelTKMessageReader {
public:
    explicit HttpMessageReader(Wire& wire);

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
    /// The bytes of the current part.
    class Part : public ByteSource {
    public:
        explicit Part(MultipartReader& reader)
            : m_reader(reader) {}
        std::size_t read(char* buffer, std::size_t size) override { return m_reader.read(buffer, size); }

    private:
        MultipartReader& m_reader;
    };

    void open();
    void openMultipart(std::string_view boundary, const std::string& start);
    bool isDrained();

    Wire& m_wire;
    ReplyInput m_in;
    std::optional<ReplyHead> m_head;
    std::optional<ReplyBody> m_body;
    std::optional<MultipartReader> m_parts; // of a multipart reply
    std::optional<Part> m_part;
    std::optional<SourceStream> m_envelope;
    std::optional<HttpAttachmentReader> m_attachment;
    enum class Next { unknown, part, none } m_next = Next::unknown; // whether one more part follows
};

} // namespace mrl::detail
