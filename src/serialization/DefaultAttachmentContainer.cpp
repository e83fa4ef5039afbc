#include "serialization/DefaultAttachmentContainer.h"

#include "HBLCore/HBLFailure.h"

DefaultAttachmentContainer::DefaultAttachmentContainer() = default;

DefaultAttachmentContainer::DefaultAttachmentContainer(const DefaultAttachmentContainer& /*other*/)
    : MRL_AttachmentContainerI() {
    HBL_ASSERT_NAMED(FALSE, "DefaultAttachmentContainer::operator= - not supported.");
}

DefaultAttachmentContainer&
DefaultAttachmentContainer::operator=(const DefaultAttachmentContainer& /*other*/) {
    HBL_ASSERT_NAMED(FALSE, "DefaultAttachmentContainer::operator= - not supported.");
    return *this;
}

DefaultAttachmentContainer::~DefaultAttachmentContainer() noexcept(false) = default;

void DefaultAttachmentContainer::write(const char* data, std::size_t size) {
    m_text.appendChars(data, size);
}

const char* DefaultAttachmentContainer::c_str() {
    return m_text.str();
}

MRL_Streamable* DefaultAttachmentContainer::getStreamable() {
    return nullptr;
}
