#include "Session/MRLAttachmentContainer.h"

#include "Session/MRLWriterT.h"

MRLAttachmentContainer::MRLAttachmentContainer() {
    m_document.init(0, 0);
}

MRLAttachmentContainer::~MRLAttachmentContainer() noexcept(false) = default;

void MRLAttachmentContainer::write(const char* data, std::size_t size) {
    MRLWriterT(*m_document.getIoInterface(0)).write(data, size); // unlike the document's own write it reports
}
