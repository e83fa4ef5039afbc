#include "Session/MRLDocIoOutputStream.h"

#include "Session/MRLDocIo.h"

#include "HBLCore/HBLFailure.h"

MRLDocIoOutputStream::~MRLDocIoOutputStream() = default;

void MRLDocIoOutputStream::write(const char* data, std::size_t size) {
    HBL_ASSERT(m_docIo);
    if (m_docIo->writeImpl(data, size) != static_cast<std::int64_t>(size)) {
        m_docIo->throwIncomplete("MRLDocIoOutputStream::write");
    }
}
