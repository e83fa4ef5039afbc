#pragma once

#include "Common/PLQEchoInputStream.h"

#include "PLQStreams/PLQFileOutputStream.h"
#include "TavelTK/TavelTKMessageReader.h"

#include <cstdint>
#include <memory>
#include <string>

class EchoTavelTKAttachmentReader;

/// Reads a reply from a real reader, and puts what was read of it into files: the envelope into one, each
/// attachment into one of its own.
class EchoTavelTKMessageReader : public TavelTKMessageReader {
public:
    /// Creates `responseFile`, or empties it.
    /// @param wrapped borrowed.
    /// @throws PLQStreamError when the file cannot be created.
    EchoTavelTKMessageReader(TavelTKMessageReader& wrapped, const std::string& responseFile);
    ~EchoTavelTKMessageReader() override;

    TavelTKMessageReader& getWrappedReader() { return m_pWrappedReader; }

    PLQInputStream& openEnvelope() override;
    /// Reports when the file is not whole.
    void closeEnvelope(PLQInputStream& envelope) override;
    int canHaveAttachments() override;
    int hasMoreAttachments() override;
    /// One attachment may be open at a time.
    TavelTKAttachmentReader& openNextAttachment() override;
    /// Reports when the file is not whole.
    /// @param attachment what openNextAttachment gave.
    void closeAttachment(TavelTKAttachmentReader& attachment) override;

    /// Not supported, like the one that follows: an assertion.
    void getEnvelope(HBLIDOM_Node& envelope) override;
    const char* getHeader(const char* name) override;

private:
    void generateAttachmentName(std::string& name);

    TavelTKMessageReader& m_pWrappedReader; // borrowed
    PLQFileOutputStream m_fileStream;
    std::unique_ptr<PLQEchoInputStream> m_pRequestEchoInputStream;
    std::unique_ptr<EchoTavelTKAttachmentReader> m_pAttachmentReader; // of the one that is open, else null
    std::string recordedBaseName;
    std::uint16_t attachmentCount = 0;
};
