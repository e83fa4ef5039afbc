#include "Common/EchoTavelTKSession.h"

#include "Common/EchoTavelTKMessageReader.h"
#include "Common/EchoTavelTKMessageWriter.h"
#include "Common/detail/Swallowing.h"

#include "HBLCore/HBLFailure.h"

EchoTavelTKSession::EchoTavelTKSession(TavelTKSession& wrapped, const std::string& requestFile,
                                       const std::string& requestAttachmentFile,
                                       const std::string& responseFile)
    : m_pWrappedSession(wrapped)
    , m_requestFileFullPath(requestFile)
    , m_requestAttachmentFileFullPath(requestAttachmentFile)
    , m_responseFileFullPath(responseFile) {}

EchoTavelTKSession::~EchoTavelTKSession() {
    mrl::detail::swallowing([this] { m_pEchoTavelTKMessageWriter.reset(); });
    mrl::detail::swallowing([this] { m_pEchoTavelTKMessageReader.reset(); });
}

void EchoTavelTKSession::setProperty(const std::string& name, int value) {
    m_pWrappedSession.setProperty(name, value);
}

void EchoTavelTKSession::setProperty(const std::string& name, const std::string& value) {
    m_pWrappedSession.setProperty(name, value);
}

TavelTKMessageWriter& EchoTavelTKSession::openRequest(int hasAttachments) {
    HBL_ASSERT_NAMED(!m_pEchoTavelTKMessageWriter, "The openRequest() method can only be called once.");
    m_pEchoTavelTKMessageWriter.reset(
        hblNew<EchoTavelTKMessageWriter>(HBL_HERE, m_pWrappedSession.openRequest(hasAttachments),
                                         m_requestFileFullPath, m_requestAttachmentFileFullPath));
    return *m_pEchoTavelTKMessageWriter;
}

void EchoTavelTKSession::closeRequest(TavelTKMessageWriter& writer) {
    HBL_ASSERT_NAMED(&writer == m_pEchoTavelTKMessageWriter.get(), "Unexpected object.");
    m_pWrappedSession.closeRequest(m_pEchoTavelTKMessageWriter->getWrappedWriter());
}

TavelTKMessageReader& EchoTavelTKSession::openResponse() {
    HBL_ASSERT_NAMED(!m_pEchoTavelTKMessageReader, "The openResponse() method can only be called once.");
    m_pEchoTavelTKMessageReader.reset(
        hblNew<EchoTavelTKMessageReader>(HBL_HERE, m_pWrappedSession.openResponse(), m_responseFileFullPath));
    return *m_pEchoTavelTKMessageReader;
}

void EchoTavelTKSession::closeResponse(TavelTKMessageReader& reader) {
    HBL_ASSERT_NAMED(&reader == m_pEchoTavelTKMessageReader.get(), "Unexpected object.");
    m_pWrappedSession.closeResponse(m_pEchoTavelTKMessageReader->getWrappedReader());
}

void EchoTavelTKSession::release() {
    m_pWrappedSession.release();
}

void EchoTavelTKSession::doRequest(HBLIDOM_Element& /*request*/, HBLIDOM_Node& /*response*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTKSession::doRequest(): not supported.");
}

void EchoTavelTKSession::sendRequest(HBLIDOM_Element& /*request*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTKSession::sendRequest(): not supported.");
}

void EchoTavelTKSession::getResponse(HBLIDOM_Node& /*response*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTKSession::getResponse(): not supported.");
}
