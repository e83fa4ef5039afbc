#pragma once

#include "Session/MRLDocumentOutput.h"
#include "Toolkit/MRL_AttachmentContainerI.h"

#include "HBLCore/MRLExport.h"

#include <string>
#include <string_view>

/// Keeps an attachment as a document: in memory while it is small, then in a temporary file. What it gives is
/// the stream.
class MRL_EXPORT MRLAttachmentContainer : public MRL_AttachmentContainerI {
public:
    /// @throws HBLAssertError before MRLDocIo::initialize().
    MRLAttachmentContainer();
    ~MRLAttachmentContainer() noexcept(false) override;

    MRLAttachmentContainer(const MRLAttachmentContainer&) = delete;
    MRLAttachmentContainer& operator=(const MRLAttachmentContainer&) = delete;

    /// @throws PLQStreamError when the store takes less; of what goes to a file the last 64 KiB are told of
    /// by getStreamable().
    void write(const char* data, std::size_t size) override;
    /// @return null always.
    const char* c_str() override { return nullptr; }
    /// @throws PLQStreamError when the store takes less.
    MRL_Streamable* getStreamable() override;

private:
    void flush();
    void store(std::string_view bytes);

    MRLDocumentOutput m_document;
    std::string m_gathered; // what the document's file will get in one piece
};
