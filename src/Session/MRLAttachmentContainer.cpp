#include "Session/MRLAttachmentContainer.h"

#include "Session/MRLWriterT.h"

namespace {

constexpr std::size_t s_gatherSize = std::size_t{64} * 1024; // for a file: attachments come in small pieces

} // namespace

MRLAttachmentContainer::MRLAttachmentContainer() {
    m_document.init(0, 0);
}

MRLAttachmentContainer::~MRLAttachmentContainer() noexcept(false) = default;

void MRLAttachmentContainer::write(const char* data, std::size_t size) {
    if (m_document.str() != nullptr) { // still in memory
        store({data, size});
        return;
    }
    if (m_gathered.size() + size > s_gatherSize) {
        flush();
    }
    if (size >= s_gatherSize) {
        store({data, size});
        return;
    }
    m_gathered.reserve(s_gatherSize);
    m_gathered.append(data, size);
}

MRL_Streamable* MRLAttachmentContainer::getStreamable() {
    flush();
    m_gathered.shrink_to_fit();
    return m_document.getAsAOMStreamable();
}

void MRLAttachmentContainer::flush() {
    if (!m_gathered.empty()) {
        store(m_gathered);
        m_gathered.clear();
    }
}

void MRLAttachmentContainer::store(std::string_view bytes) {
    // Unlike the document's own write it reports.
    MRLWriterT(*m_document.getIoInterface(0)).write(bytes.data(), bytes.size());
}
