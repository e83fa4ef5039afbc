#include "Common/MockTavelTKSession.h"

#include "Common/MockTavelTKMessageReader.h"
#include "Common/MockTavelTKMessageWriter.h"

#include "HBLCore/HBLFailure.h"

namespace {

void requireBoth(const void* m_pReader, const void* m_pWriter) {
    HBL_ASSERT(m_pReader);
    HBL_ASSERT(m_pWriter);
}

} // namespace

MockTavelTKSession::MockTavelTKSession(MockTavelTKMessageReader* reader, MockTavelTKMessageWriter* writer) {
    requireBoth(reader, writer); // while both still belong to the caller
    m_pReader.reset(reader);
    m_pWriter.reset(writer);
}

MockTavelTKSession::~MockTavelTKSession() = default;

void MockTavelTKSession::setProperty(const std::string& /*name*/, int /*value*/) {}

TavelTKMessageWriter& MockTavelTKSession::openRequest(int /*hasAttachments*/) {
    return *m_pWriter;
}

void MockTavelTKSession::closeRequest(TavelTKMessageWriter& writer) {
    writer.close();
}

TavelTKMessageReader& MockTavelTKSession::openResponse() {
    return *m_pReader;
}

void MockTavelTKSession::closeResponse(TavelTKMessageReader& /*reader*/) {}

void MockTavelTKSession::release() {}

void MockTavelTKSession::setProperty(const std::string& /*name*/, const std::string& /*value*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKSession::setProperty(): not supported.");
}

void MockTavelTKSession::doRequest(HBLIDOM_Element& /*request*/, HBLIDOM_Node& /*response*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKSession::doRequest(): not supported.");
}

void MockTavelTKSession::sendRequest(HBLIDOM_Element& /*request*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKSession::sendRequest(): not supported.");
}

void MockTavelTKSession::getResponse(HBLIDOM_Node& /*response*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTKSession::getResponse(): not supported.");
}
