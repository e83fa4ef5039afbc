#pragma once

#include "TavelTK/TavelTK.h"

#include <memory>
#include <string>

class EchoTavelTKSession;

/// A bus that records: passes the one exchange that it serves on to a real bus, and copies every byte of
/// the envelopes and attachments into files, without any framing. The directory of the files must exist;
/// files of the same name are replaced. One thread at a time.
class EchoTavelTK : public TavelTK {
public:
    /// @param wrapped the real bus, owned from now on.
    /// @param requestFile path of the envelope that is sent.
    /// @param requestAttachmentFile path of the first attachment that is sent; the n-th gets n behind it.
    /// @param responseFile path of the reply's envelope; its attachments get "_attachment" in place of the
    ///        extension, and their number behind it from the second on.
    /// @throws HBLAssertError when `wrapped` is null.
    EchoTavelTK(TavelTK* wrapped, const std::string& requestFile, const std::string& requestAttachmentFile,
                const std::string& responseFile);
    /// Ends the real bus first. What fails on the way goes unnoticed.
    ~EchoTavelTK() override;

    void setProperty(const std::string& name, int value) override;
    void setProperty(const std::string& name, const std::string& value) override;

    /// Once: a second exchange would overwrite the files of the first.
    /// @throws HBLAssertError at the second call.
    TavelTKSession* getSession(char* url, char* sessionConfig, int timeLimit) override;

    /// Not supported, like all that follow: an assertion.
    TavelTKSession* getSession(HBLIDOM_Element& endpoint, char* sessionConfig, int timeLimit) override;
    TavelTKSession* getSession(const char* host, int port, const char* path, char* sessionConfig,
                               int timeLimit) override;
    using TavelTK::getServerSocket;
    TavelTKServerSocket* getServerSocket(int port, char* config) override;
    TavelTKServerSession* getServerSession(TavelTKSocket* socket) override;
    TavelTKSocket* getSocket() override;

private:
    std::unique_ptr<TavelTK> m_pWrappedTavelTK;
    std::string m_requestFileFullPath;
    std::string m_requestAttachmentFileFullPath;
    std::string m_responseFileFullPath;
    std::unique_ptr<EchoTavelTKSession> m_pEchoTavelTKSession; // null until getSession
};
