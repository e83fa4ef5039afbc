#pragma once

#include "TavelTK/TavelTKMessageWriter.h"

#include <cstdint>
#include <memory>
#include <vector>

class PLQMemoryOutputStream;

/// Catches a request: the envelope in a stream that it is given, each attachment in memory of its own.
class MRL_EXPORT MockTavelTKMessageWriter : public TavelTKMessageWriter {
public:
    /// In the order in which they were sent; owned by the writer.
    using AttachmentStreams = std::vector<PLQMemoryOutputStream*>;

    /// @param message takes the envelope; owned once the object is made.
    /// @throws HBLAssertError when it is null.
    explicit MockTavelTKMessageWriter(PLQOutputStream* message);
    ~MockTavelTKMessageWriter() override;

    /// The envelope as it was sent.
    PLQOutputStream& getMessageOutputStream() const { return *m_pMessageStream; }
    const AttachmentStreams& getAttachmentOutputStreams() const { return m_attachmentStreams; }

    PLQOutputStream& openEnvelope(const char* soapAction) override;
    PLQOutputStream& openEnvelope() override;
    /// Closes the envelope's stream, whatever stream is given.
    void closeEnvelope(PLQOutputStream& envelope) override;
    void close() override;

    void addAttachment(const char* contentType, const char* encoding, const char* headers, const char* data,
                       std::size_t length, const char* contentId) override;
    void addAttachment(const char* contentType, const char* encoding, const char* data, std::size_t length,
                       const char* contentId) override;
    PLQOutputStream& openAttachment(const char* contentType, const char* encoding, const char* headers,
                                    const char* contentId, int flag) override;
    PLQOutputStream& openAttachment(const char* contentType, const char* encoding, const char* contentId,
                                    int flag) override;
    void closeAttachment(PLQOutputStream& attachment) override;
    /// "1", "2" and so on.
    std::string* getNewAttachmentID() override;

    /// Not supported, like the two that follow: an assertion.
    void setEnvelope(HBLIDOM_Element& envelope) override;
    void addAttachment(HBLIDOM_Element& attachment, const char* contentId) override;
    void setResponseStatus(int status, const char* reason) override;

private:
    PLQMemoryOutputStream& addStream();

    std::uint64_t m_attachmentId = 0;
    std::unique_ptr<PLQOutputStream> m_pMessageStream;
    AttachmentStreams m_attachmentStreams; // owned, each deleted by the destructor
};
