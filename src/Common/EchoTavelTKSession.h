#pragma once

#include "TavelTK/TavelTKSession.h"

#include <memory>
#include <string>

class EchoTavelTKMessageReader;
class EchoTavelTKMessageWriter;

/// The one exchange of an EchoTavelTK. Only files are echoed here: `echo` does not reach the real session.
class EchoTavelTKSession : public TavelTKSession {
public:
    /// @param wrapped borrowed: release() gives it back, and it must be released.
    EchoTavelTKSession(TavelTKSession& wrapped, const std::string& requestFile,
                       const std::string& requestAttachmentFile, const std::string& responseFile);
    /// Ends the writer, then the reader, and closes their files.
    ~EchoTavelTKSession() override;

    void setProperty(const std::string& name, int value) override;
    void setProperty(const std::string& name, const std::string& value) override;

    /// Creates the request file, once.
    /// @throws HBLAssertError at the second call; PLQStreamError when the file cannot be created.
    TavelTKMessageWriter& openRequest(int hasAttachments) override;
    void closeRequest(TavelTKMessageWriter& writer) override;
    /// Creates the response file, once.
    /// @throws as openRequest.
    TavelTKMessageReader& openResponse() override;
    void closeResponse(TavelTKMessageReader& reader) override;
    /// Gives back the real session; this one lives on until its factory ends.
    void release() override;

    /// Not supported, like the two that follow: an assertion.
    void doRequest(HBLIDOM_Element& request, HBLIDOM_Node& response) override;
    void sendRequest(HBLIDOM_Element& request) override;
    void getResponse(HBLIDOM_Node& response) override;

private:
    TavelTKSession& m_pWrappedSession; // borrowed
    std::string m_requestFileFullPath;
    std::string m_requestAttachmentFileFullPath;
    std::string m_responseFileFullPath;
    std::unique_ptr<EchoTavelTKMessageWriter> m_pEchoTavelTKMessageWriter; // null until openRequest
    std::unique_ptr<EchoTavelTKMessageReader> m_pEchoTavelTKMessageReader; // null until openResponse
};
