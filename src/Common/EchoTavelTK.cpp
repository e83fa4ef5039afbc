#include "Common/EchoTavelTK.h"

#include "Common/EchoTavelTKSession.h"
#include "Common/detail/Swallowing.h"

#include "HBLCore/HBLFailure.h"

EchoTavelTK::EchoTavelTK(TavelTK* wrapped, const std::string& requestFile,
                         const std::string& requestAttachmentFile, const std::string& responseFile)
    : m_requestFileFullPath(requestFile)
    , m_requestAttachmentFileFullPath(requestAttachmentFile)
    , m_responseFileFullPath(responseFile) {
    m_pWrappedTavelTK.reset(wrapped); // last, so that a failed construction leaves it with the caller
    HBL_ASSERT(m_pWrappedTavelTK);
}

EchoTavelTK::~EchoTavelTK() {
    mrl::detail::swallowing([this] { m_pWrappedTavelTK.reset(); });
    mrl::detail::swallowing([this] { m_pEchoTavelTKSession.reset(); });
}

void EchoTavelTK::setProperty(const std::string& name, int value) {
    m_pWrappedTavelTK->setProperty(name, value);
}

void EchoTavelTK::setProperty(const std::string& name, const std::string& value) {
    m_pWrappedTavelTK->setProperty(name, value);
}

TavelTKSession* EchoTavelTK::getSession(char* url, char* sessionConfig, int timeLimit) {
    HBL_ASSERT_NAMED(!m_pEchoTavelTKSession, "The getSession() method can only be called once.");
    TavelTKSession* const wrappedSession = m_pWrappedTavelTK->getSession(url, sessionConfig, timeLimit);
    HBL_ASSERT(wrappedSession);
    try {
        m_pEchoTavelTKSession.reset(
            hblNew<EchoTavelTKSession>(HBL_HERE, *wrappedSession, m_requestFileFullPath,
                                       m_requestAttachmentFileFullPath, m_responseFileFullPath));
    } catch (...) {
        mrl::detail::swallowing([&] { wrappedSession->release(); });
        throw;
    }
    return m_pEchoTavelTKSession.get();
}

TavelTKSession* EchoTavelTK::getSession(HBLIDOM_Element& /*endpoint*/, char* /*sessionConfig*/,
                                        int /*timeLimit*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTK::getSession(): not supported.");
    return nullptr;
}

TavelTKSession* EchoTavelTK::getSession(const char* /*host*/, int /*port*/, const char* /*path*/,
                                        char* /*sessionConfig*/, int /*timeLimit*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTK::getSession(): not supported.");
    return nullptr;
}

TavelTKServerSocket* EchoTavelTK::getServerSocket(int /*port*/, char* /*config*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTK::getServerSocket(): not supported.");
    return nullptr;
}

TavelTKServerSession* EchoTavelTK::getServerSession(TavelTKSocket* /*socket*/) {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTK::getServerSession(): not supported.");
    return nullptr;
}

TavelTKSocket* EchoTavelTK::getSocket() {
    HBL_ASSERT_NAMED(FALSE, "EchoTavelTK::getSocket(): not supported.");
    return nullptr;
}
