#pragma once

#include "TavelTK/TavelTK.h"

#include <memory>
#include <string>

class MockTavelTKSession;

/// A bus that plays back: answers one recorded exchange from its reply file, without any connection, and
/// keeps what was sent, for a test to compare with the recorded request. Made by MRLTestInfo. One thread at
/// a time.
class MRL_EXPORT MockTavelTK : public TavelTK {
public:
    /// @param session owned once the object is made.
    /// The paths are only kept for getRequestFileFullPath() and its like.
    MockTavelTK(MockTavelTKSession* session, const std::string& requestFile,
                const std::string& requestAttachmentFile, const std::string& responseFile);
    ~MockTavelTK() override;

    const MockTavelTKSession& getMockTavelTKSession() const;
    // NOLINTBEGIN(readability-const-return-type)
    const std::string getRequestFileFullPath() const { return m_requestFileFullPath; }
    const std::string getRequestAttachmentFileFullPath() const { return m_requestAttachmentFileFullPath; }
    const std::string getResponseFileFullPath() const { return m_responseFileFullPath; }
    // NOLINTEND(readability-const-return-type)

    /// The same session at each call; its reader goes on where it was.
    TavelTKSession* getSession(char* url, char* sessionConfig, int timeLimit) override;

    /// Not supported, like all that follow: an assertion.
    void setProperty(const std::string& name, int value) override;
    void setProperty(const std::string& name, const std::string& value) override;
    TavelTKSession* getSession(HBLIDOM_Element& endpoint, char* sessionConfig, int timeLimit) override;
    TavelTKSession* getSession(const char* host, int port, const char* path, char* sessionConfig,
                               int timeLimit) override;
    using TavelTK::getServerSocket;
    TavelTKServerSocket* getServerSocket(int port, char* config) override;
    TavelTKServerSession* getServerSession(TavelTKSocket* socket) override;
    TavelTKSocket* getSocket() override;

private:
    std::unique_ptr<MockTavelTKSession> m_pSession;
    std::string m_requestFileFullPath;
    std::string m_requestAttachmentFileFullPath;
    std::string m_responseFileFullPath;
};
