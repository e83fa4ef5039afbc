#pragma once

#include "Toolkit/MRL_AttachmentContainerI.h"
#include "Toolkit/MRL_String.h"

/// Keeps an attachment in memory, as text.
class MRL_EXPORT DefaultAttachmentContainer : public MRL_AttachmentContainerI {
public:
    DefaultAttachmentContainer();

    /// @throws HBLAssertError always: containers are not copied.
    DefaultAttachmentContainer(const DefaultAttachmentContainer& other);
    DefaultAttachmentContainer& operator=(const DefaultAttachmentContainer& other);
    ~DefaultAttachmentContainer() noexcept(false) override;

    void write(const char* data, std::size_t size) override;
    const char* c_str() override;
    MRL_Streamable* getStreamable() override;

private:
    MRL_String m_text;
};
