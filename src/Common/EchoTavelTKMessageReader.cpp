#include "Common/EchoTavelTKMessageReader.h"

#include "Common/EchoTavelTKAttachmentReader.h"
#include "Common/detail/AttachmentNames.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmDir.h"

#include <algorithm>
#include <utility>

namespace {

std::string attachmentBaseName(const std::string& responseFile) {
    std::string directory;
    std::string file;
    HBLFmDir::splitPath(responseFile, &directory, &file);
    file.resize(std::min(file.rfind('.'), file.size())); // no "." is npos, beyond the end
    return directory + "/" + file + "_attachment";
}

} // namespace

EchoTavelTKMessageReader::EchoTavelTKMessageReader(TavelTKMessageReader& wrapped,
                                                   const std::string& responseFile)
    : TavelTKMessageReader(1)
    , m_pWrappedReader(wrapped)
    , m_fileStream(responseFile, 0)
    , recordedBaseName(attachmentBaseName(responseFile)) {}

EchoTavelTKMessageReader::~EchoTavelTKMessageReader() = default;

PLQInputStream& EchoTavelTKMessageReader::openEnvelope() {
    HBL_ASSERT_NAMED(!m_pRequestEchoInputStream, "The openEnvelope() method can only be called once.");
    m_pRequestEchoInputStream.reset(
        hblNew<PLQEchoInputStream>(HBL_HERE, m_pWrappedReader.openEnvelope(), m_fileStream));
    return *m_pRequestEchoInputStream;
}

void EchoTavelTKMessageReader::closeEnvelope(PLQInputStream& envelope) {
    m_fileStream.close();
    m_pWrappedReader.closeEnvelope(envelope);
}

int EchoTavelTKMessageReader::canHaveAttachments() {
    return m_pWrappedReader.canHaveAttachments();
}

int EchoTavelTKMessageReader::hasMoreAttachments() {
    return m_pWrappedReader.hasMoreAttachments();
}

void EchoTavelTKMessageReader::generateAttachmentName(std::string& name) {
    name = mrl::detail::nextAttachmentName(recordedBaseName, attachmentCount);
}

TavelTKAttachmentReader& EchoTavelTKMessageReader::openNextAttachment() {
    HBL_ASSERT_NAMED(!m_pAttachmentReader, ".");
    std::string name;
    generateAttachmentName(name);
    m_pAttachmentReader.reset(
        hblNew<EchoTavelTKAttachmentReader>(HBL_HERE, m_pWrappedReader.openNextAttachment(), name));
    return *m_pAttachmentReader;
}

void EchoTavelTKMessageReader::closeAttachment(TavelTKAttachmentReader& attachment) {
    if (&attachment != m_pAttachmentReader.get())
        hblAssertFailed("HBL_ASSERT(&reader == m_pAttachmentReader);", HBL_HERE, __func__);
    m_pWrappedReader.closeAttachment(m_pAttachmentReader->getWrappedReader());
    const std::unique_ptr<EchoTavelTKAttachmentReader> finished = std::move(m_pAttachmentReader);
    finished->closeFile();
}

void EchoTavelTKMessageReader::getEnvelope(HBLIDOM_Node& /*envelope*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTKMessageReader::getEnvelope(): not supported.");
}

const char* EchoTavelTKMessageReader::getHeader(const char* /*name*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTKMessageReader::getHeader(): not supported.");
    return nullptr;
}
