#pragma once

#include "Common/PLQEchoInputStream.h"

#include "PLQStreams/PLQFileOutputStream.h"
#include "TavelTK/TavelTKAttachmentReader.h"

#include <memory>
#include <string>

/// One attachment of a reply, whose bytes go into a file as they are read: below any unpacking.
class EchoTavelTKAttachmentReader : public TavelTKAttachmentReader {
public:
    /// Creates `file`, or empties it.
    /// @param wrapped borrowed.
    /// @throws PLQStreamError when the file cannot be created.
    EchoTavelTKAttachmentReader(TavelTKAttachmentReader& wrapped, const std::string& file);
    /// Closes the file; a failure goes unnoticed here.
    ~EchoTavelTKAttachmentReader() override;

    TavelTKAttachmentReader& getWrappedReader() { return m_pWrappedReader; }
    /// @throws PLQStreamError when the file is not whole.
    void closeFile() { m_fileStream.close(); }

    const char* getContentID() override;
    const char* getContentType() override;
    int getContentLength() override;
    const char* getHeader(const char* name) override;
    int isGzipped() override;
    /// To be called once: a second call ends the stream of the first.
    PLQInputStream& getInputStream() override;

private:
    TavelTKAttachmentReader& m_pWrappedReader; // borrowed
    PLQFileOutputStream m_fileStream;
    std::unique_ptr<PLQEchoInputStream> m_pEchoInputStream; // null until getInputStream
};
