#include "Common/MockTavelTK.h"

#include "Common/MockTavelTKSession.h"

#include "HBLCore/HBLFailure.h"

MockTavelTK::MockTavelTK(MockTavelTKSession* session, const std::string& requestFile,
                         const std::string& requestAttachmentFile, const std::string& responseFile)
    : m_requestFileFullPath(requestFile)
    , m_requestAttachmentFileFullPath(requestAttachmentFile)
    , m_responseFileFullPath(responseFile) {
    m_pSession.reset(session); // last, so that a failed construction leaves it with the caller
}

MockTavelTK::~MockTavelTK() = default;

const MockTavelTKSession& MockTavelTK::getMockTavelTKSession() const {
    HBL_ASSERT(m_pSession);
    return *m_pSession;
}

TavelTKSession* MockTavelTK::getSession(char* /*url*/, char* /*sessionConfig*/, int /*timeLimit*/) {
    return m_pSession.get();
}

void MockTavelTK::setProperty(const std::string& /*name*/, int /*value*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTK::setProperty(): not supported.");
}

void MockTavelTK::setProperty(const std::string& /*name*/, const std::string& /*value*/) {
    // The text names another operation; callers know it as it is.
    HBL_ASSERT_NAMED(FALSE, "MockTavelTK::getSocket(): not supported.");
}

TavelTKSession* MockTavelTK::getSession(HBLIDOM_Element& /*endpoint*/, char* /*sessionConfig*/,
                                        int /*timeLimit*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTK::getSession(): not supported.");
    return nullptr;
}

TavelTKSession* MockTavelTK::getSession(const char* /*host*/, int /*port*/, const char* /*path*/,
                                        char* /*sessionConfig*/, int /*timeLimit*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTK::getSession(): not supported.");
    return nullptr;
}

TavelTKServerSocket* MockTavelTK::getServerSocket(int /*port*/, char* /*config*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTK::getServerSocket(): not supported.");
    return nullptr;
}

TavelTKServerSession* MockTavelTK::getServerSession(TavelTKSocket* /*socket*/) {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTK::getServerSession(): not supported.");
    return nullptr;
}

TavelTKSocket* MockTavelTK::getSocket() {
    HBL_ASSERT_NAMED(FALSE, "MockTavelTK::getSocket(): not supported.");
    return nullptr;
}
