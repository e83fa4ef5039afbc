#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <string>

class HBLIDOM_Element;
class PLQOutputStream;

/// Writes one message: its envelope, then its attachments one after the other. The streams that it hands
/// out belong to it and end with their close operation. closeEnvelope and closeAttachment take any stream:
/// what is closed is what is open, so that a filter around the stream can be given back instead.
class MRL_EXPORT TavelTKMessageWriter {
public:
    TavelTKMessageWriter() = default;
    virtual ~TavelTKMessageWriter();
    TavelTKMessageWriter(const TavelTKMessageWriter&) = delete;
    TavelTKMessageWriter& operator=(const TavelTKMessageWriter&) = delete;

    virtual void setEnvelope(HBLIDOM_Element& envelope) = 0;
    /// Opens the envelope, once a message.
    /// @param soapAction the action without quotes; printable ASCII.
    virtual PLQOutputStream& openEnvelope(const char* soapAction) = 0;
    virtual PLQOutputStream& openEnvelope() = 0;
    virtual void closeEnvelope(PLQOutputStream& envelope) = 0;

    virtual void addAttachment(const char* contentType, const char* encoding, const char* headers,
                               const char* data, std::size_t length, const char* contentId) = 0;
    virtual void addAttachment(const char* contentType, const char* encoding, const char* data,
                               std::size_t length, const char* contentId) = 0;
    virtual void addAttachment(HBLIDOM_Element& attachment, const char* contentId) = 0;

    /// Opens the next attachment, after the envelope has been closed.
    /// @param contentType media type; null or empty: "application/octet-stream".
    /// @param encoding character encoding of a text; null or empty: none is stated.
    /// @param headers further header lines such as "Content-Encoding:gzip", one a line; may be null.
    /// @param contentId the id that the envelope's "cid:" reference names, without angle brackets.
    /// @param flag not used; 1.
    virtual PLQOutputStream& openAttachment(const char* contentType, const char* encoding,
                                            const char* headers, const char* contentId, int flag) = 0;
    virtual PLQOutputStream& openAttachment(const char* contentType, const char* encoding,
                                            const char* contentId, int flag) = 0;
    virtual void closeAttachment(PLQOutputStream& attachment) = 0;

    /// A content id that no other attachment of the process has. The caller deletes the string.
    virtual std::string* getNewAttachmentID() = 0;
    virtual void close() = 0;
    virtual void setResponseStatus(int status, const char* reason) = 0;
};
