#include "Common/EchoTavelTKAttachmentReader.h"

#include "Common/detail/Swallowing.h"

#include "HBLCore/HBLFailure.h"

EchoTavelTKAttachmentReader::EchoTavelTKAttachmentReader(TavelTKAttachmentReader& wrapped,
                                                         const std::string& file)
    : m_pWrappedReader(wrapped)
    , m_fileStream(file, 0) {}

EchoTavelTKAttachmentReader::~EchoTavelTKAttachmentReader() {
    mrl::detail::swallowing([this] { m_fileStream.close(); });
    m_pEchoInputStream.reset();
}

const char* EchoTavelTKAttachmentReader::getContentID() {
    return m_pWrappedReader.getContentID();
}

const char* EchoTavelTKAttachmentReader::getContentType() {
    return m_pWrappedReader.getContentType();
}

int EchoTavelTKAttachmentReader::getContentLength() {
    return m_pWrappedReader.getContentLength();
}

const char* EchoTavelTKAttachmentReader::getHeader(const char* name) {
    return m_pWrappedReader.getHeader(name);
}

int EchoTavelTKAttachmentReader::isGzipped() {
    return m_pWrappedReader.isGzipped();
}

PLQInputStream& EchoTavelTKAttachmentReader::getInputStream() {
    m_pEchoInputStream.reset(
        hblNew<PLQEchoInputStream>(HBL_HERE, m_pWrappedReader.getInputStream(), m_fileStream));
    return *m_pEchoInputStream;
}
