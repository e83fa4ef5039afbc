#pragma once

#include "HBLCore/MRLExport.h"

class PLQInputStream;

/// One attachment of a reply. Texts and stream are valid until the attachment is closed.
class MRL_EXPORT TavelTKAttachmentReader {
public:
    TavelTKAttachmentReader() = default;
    virtual ~TavelTKAttachmentReader();
    TavelTKAttachmentReader(const TavelTKAttachmentReader&) = delete;
    TavelTKAttachmentReader& operator=(const TavelTKAttachmentReader&) = delete;

    /// The content id as it stands in the message, angle brackets included; empty if there is none.
    virtual const char* getContentID() = 0;
    /// The media type; empty if there is none.
    virtual const char* getContentType() = 0;
    /// The stated length in bytes; -1 if none is stated, an int cannot hold it, or it is that of coded bytes.
    virtual int getContentLength() = 0;
    /// A header by its name, in any case; null if there is none.
    virtual const char* getHeader(const char* name) = 0;
    /// Not 0 if the bytes are gzip and the user must unpack them.
    virtual int isGzipped() = 0;
    /// The attachment's bytes, freed of Base64 and quoted-printable, otherwise as they were sent; the same
    /// stream at each call.
    virtual PLQInputStream& getInputStream() = 0;
};
