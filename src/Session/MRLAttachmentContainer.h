#pragma once

#include "Session/MRLDocumentOutput.h"
#include "Toolkit/MRL_AttachmentContainerI.h"

#include "HBLCore/MRLExport.h"

/// Keeps an attachment as a document: in memory while it is small, then in a temporary file. What it gives is
/// the stream.
class MRL_EXPORT MRLAttachmentContainer : public MRL_AttachmentContainerI {
public:
    /// @throws HBLAssertError before MRLDocIo::initialize().
    MRLAttachmentContainer();
    ~MRLAttachmentContainer() noexcept(false) override;

    MRLAttachmentContainer(const MRLAttachmentContainer&) = delete;
    MRLAttachmentContainer& operator=(const MRLAttachmentContainer&) = delete;

    /// @throws PLQStreamError when the store takes less.
    void write(const char* data, std::size_t size) override;
    /// @return null always.
    const char* c_str() override { return nullptr; }
    MRL_Streamable* getStreamable() override { return m_document.getAsAOMStreamable(); }

private:
    MRLDocumentOutput m_document;
};
