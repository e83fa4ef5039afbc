#pragma once

#include "http/MultipartParts.h"

#include "TavelTK/TavelTKAttachmentReader.h"
#include "TavelTK/TavelTKMessageReader.h"

#include <optional>
#include <string>

namespace mrl::bus {

/// The body of a request as a message: an envelope alone, or a multipart body with the envelope first and
/// attachments behind it.
class HttpMessage : public TavelTKMessageReader, private TavelTKAttachmentReader {
public:
    /// @param contentType the header; borrowed, like the body.
    /// @throws Unreadable, Poco::Exception for a content type that cannot be read.
    HttpMessage(PLQInputStream& body, const std::string& contentType);

    /// Whether the bus reads bodies of this content type.
    static bool reads(const std::string& contentType);

    PLQInputStream& openEnvelope() override;
    void closeEnvelope(PLQInputStream& /*envelope*/) override {}
    int canHaveAttachments() override { return m_parts ? 1 : 0; }
    int hasMoreAttachments() override;
    TavelTKAttachmentReader& openNextAttachment() override;
    void closeAttachment(TavelTKAttachmentReader& /*attachment*/) override {}

    /// Of the current part, an attachment's as well.
    const char* getHeader(const char* name) override;

    /// Not offered.
    void getEnvelope(HBLIDOM_Node& envelope) override;

private:
    class PartStream : public PLQInputStream {
    public:
        explicit PartStream(std::optional<MultipartParts>& parts)
            : m_parts(parts) {}
        using PLQInputStream::read;
        std::size_t read(char* buffer, std::size_t count) override { return m_parts->read(buffer, count); }

    private:
        std::optional<MultipartParts>& m_parts;
    };

    const char* getContentID() override { return header("content-id"); }
    const char* getContentType() override { return header("content-type"); }
    int getContentLength() override { return -1; }
    int isGzipped() override;
    PLQInputStream& getInputStream() override { return m_partStream; }

    const char* header(std::string_view name) const;
    void checkEncoding() const;

    PLQInputStream& m_body; // borrowed
    std::optional<MultipartParts> m_parts;
    std::string m_start; // the content id of the envelope, empty when it is not told
    PartStream m_partStream{m_parts};
    bool m_onAttachment = false; // the current part was not opened yet
};

} // namespace mrl::bus
