#pragma once

#include "Common/PLQEchoOutputStream.h"

#include "PLQStreams/PLQFileOutputStream.h"
#include "TavelTK/TavelTKMessageWriter.h"

#include <cstdint>
#include <memory>
#include <string>

/// Writes a request to a real writer and, byte for byte, into files: the envelope into one, each attachment
/// into one of its own. Closing an envelope or an attachment reports when its file is not whole.
class EchoTavelTKMessageWriter : public TavelTKMessageWriter {
public:
    /// Creates `requestFile`, or empties it.
    /// @param wrapped borrowed.
    /// @throws PLQStreamError when the file cannot be created.
    EchoTavelTKMessageWriter(TavelTKMessageWriter& wrapped, const std::string& requestFile,
                             const std::string& requestAttachmentFile);
    ~EchoTavelTKMessageWriter() override;

    TavelTKMessageWriter& getWrappedWriter() { return m_pWrappedWriter; }

    PLQOutputStream& openEnvelope(const char* soapAction) override;
    PLQOutputStream& openEnvelope() override;
    /// @param envelope what openEnvelope gave.
    void closeEnvelope(PLQOutputStream& envelope) override;

    void addAttachment(const char* contentType, const char* encoding, const char* headers, const char* data,
                       std::size_t length, const char* contentId) override;
    void addAttachment(const char* contentType, const char* encoding, const char* data, std::size_t length,
                       const char* contentId) override;
    /// One attachment may be open at a time.
    PLQOutputStream& openAttachment(const char* contentType, const char* encoding, const char* headers,
                                    const char* contentId, int flag) override;
    PLQOutputStream& openAttachment(const char* contentType, const char* encoding, const char* contentId,
                                    int flag) override;
    /// @param attachment what openAttachment gave.
    void closeAttachment(PLQOutputStream& attachment) override;

    std::string* getNewAttachmentID() override;
    void close() override;
    void setResponseStatus(int status, const char* reason) override;

    /// Not supported, like the one that follows: an assertion.
    void setEnvelope(HBLIDOM_Element& envelope) override;
    void addAttachment(HBLIDOM_Element& attachment, const char* contentId) override;

private:
    void generateAttachmentName(std::string& name);
    void record(const char* data, std::size_t length);
    PLQOutputStream& teeEnvelope(PLQOutputStream& real);
    void openAttachmentFile();
    PLQOutputStream& teeAttachment(PLQOutputStream& real);

    TavelTKMessageWriter& m_pWrappedWriter; // borrowed
    PLQFileOutputStream m_fileStream;
    // Of the attachment that is open, else null. The tees go before the files that they write to.
    std::unique_ptr<PLQFileOutputStream> m_pResponseAttachmentCopy;
    std::unique_ptr<PLQEchoOutputStream> m_pResponseEchoOutputStream;
    std::unique_ptr<PLQEchoOutputStream> m_pResponseAttachmentEchoOutputStream;
    std::string recordedBaseName;
    std::uint16_t attachmentCount = 0;
};
