#include "Common/MockTavelTKMessageReader.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQInputStream.h"
#include "TavelTK/TavelTKAttachmentReader.h"

MockTavelTKMessageReader::MockTavelTKMessageReader(PLQInputStream* response)
    : TavelTKMessageReader(1) {
    m_pResponseStream.reset(response);
    HBL_ASSERT(m_pResponseStream);
}

MockTavelTKMessageReader::~MockTavelTKMessageReader() = default;

PLQInputStream& MockTavelTKMessageReader::openEnvelope() {
    return *m_pResponseStream;
}

void MockTavelTKMessageReader::closeEnvelope(PLQInputStream& /*envelope*/) {
    m_pResponseStream->close();
}

int MockTavelTKMessageReader::canHaveAttachments() {
    return 0;
}

void MockTavelTKMessageReader::getEnvelope(HBLIDOM_Node& /*envelope*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKMessageReader::getEnvelope(): not supported.");
}

int MockTavelTKMessageReader::hasMoreAttachments() {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKMessageReader::hasMoreAttachments(): not supported.");
    return 0;
}

TavelTKAttachmentReader& MockTavelTKMessageReader::openNextAttachment() {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKMessageReader::openNextAttachment(): not supported.");
    return *m_pAttachmentReader;
}

void MockTavelTKMessageReader::closeAttachment(TavelTKAttachmentReader& /*attachment*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKMessageReader::closeAttachment(): not supported.");
}

const char* MockTavelTKMessageReader::getHeader(const char* /*name*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKMessageReader::getHeader(): not supported.");
    return nullptr;
}
