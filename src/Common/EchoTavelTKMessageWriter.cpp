#include "Common/EchoTavelTKMessageWriter.h"

#include "Common/detail/AttachmentNames.h"

#include "HBLCore/HBLFailure.h"

EchoTavelTKMessageWriter::EchoTavelTKMessageWriter(TavelTKMessageWriter& wrapped,
                                                   const std::string& requestFile,
                                                   const std::string& requestAttachmentFile)
    : m_pWrappedWriter(wrapped)
    , m_fileStream(requestFile, 0)
    , recordedBaseName(requestAttachmentFile) {}

EchoTavelTKMessageWriter::~EchoTavelTKMessageWriter() = default;

PLQOutputStream& EchoTavelTKMessageWriter::openEnvelope(const char* soapAction) {
    HBL_ASSERT_NAMED(!m_pResponseEchoOutputStream, "The openEnvelope() method can only be called once.");
    return teeEnvelope(m_pWrappedWriter.openEnvelope(soapAction));
}

PLQOutputStream& EchoTavelTKMessageWriter::openEnvelope() {
    HBL_ASSERT_NAMED(!m_pResponseEchoOutputStream, "The openEnvelope() method can only be called once.");
    return teeEnvelope(m_pWrappedWriter.openEnvelope());
}

PLQOutputStream& EchoTavelTKMessageWriter::teeEnvelope(PLQOutputStream& real) {
    m_pResponseEchoOutputStream.reset(hblNew<PLQEchoOutputStream>(HBL_HERE, real, m_fileStream));
    return *m_pResponseEchoOutputStream;
}

void EchoTavelTKMessageWriter::closeEnvelope(PLQOutputStream& envelope) {
    const PLQEchoOutputStream* const tee = m_pResponseEchoOutputStream.get();
    if (&envelope != tee)
        hblAssertFailed("HBL_ASSERT(&envelope == m_pResponseEchoOutputStream);", HBL_HERE, __func__);
    m_pResponseEchoOutputStream->close(); // the file too
    m_pWrappedWriter.closeEnvelope(envelope);
}

void EchoTavelTKMessageWriter::generateAttachmentName(std::string& name) {
    name = mrl::detail::nextAttachmentName(recordedBaseName, attachmentCount);
}

void EchoTavelTKMessageWriter::record(const char* data, std::size_t length) {
    std::string name;
    generateAttachmentName(name);
    PLQFileOutputStream file(name, 0);
    file.write(data, length);
    file.close(); // reports what the destructor would not
}

void EchoTavelTKMessageWriter::addAttachment(const char* contentType, const char* encoding,
                                             const char* headers, const char* data, std::size_t length,
                                             const char* contentId) {
    record(data, length);
    m_pWrappedWriter.addAttachment(contentType, encoding, headers, data, length, contentId);
}

void EchoTavelTKMessageWriter::addAttachment(const char* contentType, const char* encoding, const char* data,
                                             std::size_t length, const char* contentId) {
    record(data, length);
    m_pWrappedWriter.addAttachment(contentType, encoding, data, length, contentId);
}

void EchoTavelTKMessageWriter::openAttachmentFile() {
    HBL_ASSERT_NAMED(!m_pResponseAttachmentCopy, "Only a single attachment is currently supported.");
    std::string name;
    generateAttachmentName(name);
    m_pResponseAttachmentCopy.reset(hblNew<PLQFileOutputStream>(HBL_HERE, name, 0));
}

PLQOutputStream& EchoTavelTKMessageWriter::teeAttachment(PLQOutputStream& real) {
    m_pResponseAttachmentEchoOutputStream.reset(
        hblNew<PLQEchoOutputStream>(HBL_HERE, real, *m_pResponseAttachmentCopy));
    return *m_pResponseAttachmentEchoOutputStream;
}

PLQOutputStream& EchoTavelTKMessageWriter::openAttachment(const char* contentType, const char* encoding,
                                                          const char* headers, const char* contentId,
                                                          int flag) {
    openAttachmentFile();
    return teeAttachment(m_pWrappedWriter.openAttachment(contentType, encoding, headers, contentId, flag));
}

PLQOutputStream& EchoTavelTKMessageWriter::openAttachment(const char* contentType, const char* encoding,
                                                          const char* contentId, int flag) {
    openAttachmentFile();
    return teeAttachment(m_pWrappedWriter.openAttachment(contentType, encoding, contentId, flag));
}

void EchoTavelTKMessageWriter::closeAttachment(PLQOutputStream& attachment) {
    const PLQEchoOutputStream* const tee = m_pResponseAttachmentEchoOutputStream.get();
    if (&attachment != tee)
        hblAssertFailed("HBL_ASSERT(&attachment == m_pResponseAttachmentEchoOutputStream);", HBL_HERE,
                        __func__);
    m_pResponseAttachmentEchoOutputStream->close(); // the file too
    m_pWrappedWriter.closeAttachment(attachment);
    m_pResponseAttachmentEchoOutputStream.reset();
    m_pResponseAttachmentCopy.reset();
}

std::string* EchoTavelTKMessageWriter::getNewAttachmentID() {
    return m_pWrappedWriter.getNewAttachmentID();
}

void EchoTavelTKMessageWriter::close() {
    m_fileStream.close();
    if (m_pResponseAttachmentCopy)
        m_pResponseAttachmentCopy->close();
    m_pWrappedWriter.close();
}

void EchoTavelTKMessageWriter::setResponseStatus(int status, const char* reason) {
    m_pWrappedWriter.setResponseStatus(status, reason);
}

void EchoTavelTKMessageWriter::setEnvelope(HBLIDOM_Element& /*envelope*/) {
    HBL_ASSERT_NAMED(FALSE, "The setEnvelope() method is not supported.");
}

void EchoTavelTKMessageWriter::addAttachment(HBLIDOM_Element& /*attachment*/, const char* /*contentId*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTKMessageWriter::addAttachment(): not supported.");
}
