#include "Session/MRLostream.h"

#include "Session/MRLDocIo.h"

#include "HBLCore/HBLFailure.h"

MRLostream::MRLostream(int compressed, MRLDocIo* docIo, int /*mostDerived*/)
    : std::ostream(nullptr)
    , m_docIo(docIo)
    , m_compressed(compressed) {
    m_docIoStream.init(docIo);
    wrap(m_docIoStream);
}

MRLostream::MRLostream(int compressed, std::size_t initialSize, std::size_t growth, int /*mostDerived*/)
    : std::ostream(nullptr)
    , m_memory(hblNew<PLQMemoryOutputStream>(HBL_HERE, initialSize, growth))
    , m_compressed(compressed) {
    wrap(*m_memory);
}

MRLostream::~MRLostream() {
    try {
        flush();
    } catch (...) { // documented: only an explicit flush reports
    }
}

void MRLostream::wrap(PLQOutputStream& target) {
    if (m_compressed != 0) {
        m_gzip.wrap(target);
        m_streamBuffer.wrap(m_gzip);
    } else {
        m_streamBuffer.wrap(target);
    }
    rdbuf(&m_streamBuffer);
}

MRLostream& MRLostream::flush() {
    std::ostream::flush();
    if (m_finished == 0) {
        if (m_compressed != 0) {
            m_gzip.close();
        }
        m_finished = pcount() > 0 ? 1 : 0;
    }
    return *this;
}

const char* MRLostream::str() const {
    return m_memory != nullptr ? m_memory->bytes() : nullptr;
}

std::size_t MRLostream::pcount() const {
    return m_memory != nullptr ? m_memory->length() : m_docIo != nullptr ? m_docIo->pcount() : 0;
}
