#pragma once

#include "TavelTK/TavelTKMessageReader.h"

#include <memory>

class PLQInputStream;
class TavelTKAttachmentReader;

/// Reads a recorded reply. Only its envelope: attachments do not come back.
class MRL_EXPORT MockTavelTKMessageReader : public TavelTKMessageReader {
public:
    /// @param response the envelope's bytes, owned once the object is made.
    /// @throws HBLAssertError when it is null.
    explicit MockTavelTKMessageReader(PLQInputStream* response);
    ~MockTavelTKMessageReader() override;

    PLQInputStream& openEnvelope() override;
    /// Closes the file, whatever stream is given.
    void closeEnvelope(PLQInputStream& envelope) override;
    /// 0 always.
    int canHaveAttachments() override;

    /// Not supported, like all that follow: an assertion.
    void getEnvelope(HBLIDOM_Node& envelope) override;
    int hasMoreAttachments() override;
    TavelTKAttachmentReader& openNextAttachment() override;
    void closeAttachment(TavelTKAttachmentReader& attachment) override;
    const char* getHeader(const char* name) override;

private:
    std::unique_ptr<PLQInputStream> m_pResponseStream;
    std::unique_ptr<TavelTKAttachmentReader> m_pAttachmentReader; // null: no attachment is played back
};
