#include "Common/MockTavelTKMessageWriter.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

namespace {

constexpr std::size_t ATTACHMENT_SIZE = 1024;

} // namespace

MockTavelTKMessageWriter::MockTavelTKMessageWriter(PLQOutputStream* message) {
    m_pMessageStream.reset(message);
    HBL_ASSERT(m_pMessageStream);
}

MockTavelTKMessageWriter::~MockTavelTKMessageWriter() {
    m_pMessageStream.reset();
    for (const PLQMemoryOutputStream* stream : m_attachmentStreams)
        delete stream;
}

PLQOutputStream& MockTavelTKMessageWriter::openEnvelope(const char* /*soapAction*/) {
    return *m_pMessageStream;
}

PLQOutputStream& MockTavelTKMessageWriter::openEnvelope() {
    return *m_pMessageStream;
}

void MockTavelTKMessageWriter::closeEnvelope(PLQOutputStream& /*envelope*/) {
    m_pMessageStream->close();
}

void MockTavelTKMessageWriter::close() {
    m_pMessageStream->close();
}

PLQMemoryOutputStream& MockTavelTKMessageWriter::addStream() {
    std::unique_ptr<PLQMemoryOutputStream> stream(
        hblNew<PLQMemoryOutputStream>(HBL_HERE, ATTACHMENT_SIZE, ATTACHMENT_SIZE));
    hblRethrowing("MockTavelTKMessageWriter::openAttachment",
                  [&] { m_attachmentStreams.push_back(stream.get()); });
    return *stream.release();
}

void MockTavelTKMessageWriter::addAttachment(const char* contentType, const char* encoding,
                                             const char* /*headers*/, const char* data, std::size_t length,
                                             const char* contentId) {
    addAttachment(contentType, encoding, data, length, contentId);
}

void MockTavelTKMessageWriter::addAttachment(const char* /*contentType*/, const char* /*encoding*/,
                                             const char* data, std::size_t length,
                                             const char* /*contentId*/) {
    addStream().write(data, length);
}

PLQOutputStream& MockTavelTKMessageWriter::openAttachment(const char* contentType, const char* encoding,
                                                          const char* /*headers*/, const char* contentId,
                                                          int flag) {
    return openAttachment(contentType, encoding, contentId, flag);
}

PLQOutputStream& MockTavelTKMessageWriter::openAttachment(const char* /*contentType*/,
                                                          const char* /*encoding*/, const char* /*contentId*/,
                                                          int /*flag*/) {
    return addStream();
}

void MockTavelTKMessageWriter::closeAttachment(PLQOutputStream& /*attachment*/) {}

std::string* MockTavelTKMessageWriter::getNewAttachmentID() {
    return hblNew<std::string>(HBL_HERE, std::to_string(++m_attachmentId));
}

void MockTavelTKMessageWriter::setEnvelope(HBLIDOM_Element& /*envelope*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKMessageWriter::setEnvelope(): not supported.");
}

void MockTavelTKMessageWriter::addAttachment(HBLIDOM_Element& /*attachment*/, const char* /*contentId*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKMessageWriter::addAttachment(): not supported.");
}

void MockTavelTKMessageWriter::setResponseStatus(int /*status*/, const char* /*reason*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKMessageWriter::setResponseStatus(): not supported.");
}
