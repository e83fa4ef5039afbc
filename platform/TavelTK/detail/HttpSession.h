#pragma once

#include "TavelTK/TavelTKSession.h"
#include "TavelTK/detail/HttpMessageReader.h"
#include "TavelTK/detail/HttpMessageWriter.h"
#include "TavelTK/detail/Wire.h"

#include <optional>
#include <string>

namespace mrl::detail {

/// One SOAP request over HTTP/1.1 and its reply.
class HttpSession : public TavelTKSession {
public:
    /// @throws TavelTKException badArgument for a time limit below 1 or a session configuration too long.
    HttpSession(Endpoint endpoint, const char* sessionConfig, int timeLimit, const SessionOptions& options,
                const Surroundings& surroundings);

    void setProperty(const std::string& name, int value) override;
    void setProperty(const std::string& name, const std::string& value) override;
    using TavelTKSession::echo;
    void echo(const char* fileName, const char* mode, int flag) override;
    void doRequest(HBLIDOM_Element& request, HBLIDOM_Node& response) override;
    void sendRequest(HBLIDOM_Element& request) override;
    void getResponse(HBLIDOM_Node& response) override;
    TavelTKMessageWriter& openRequest(int hasAttachments) override;
    void closeRequest(TavelTKMessageWriter& writer) override;
    TavelTKMessageReader& openResponse() override;
    void closeResponse(TavelTKMessageReader& reader) override;
    void release() override;

private:
    [[noreturn]] void refuse(const char* operation);

    Wire m_wire;
    ReplyInput m_in{m_wire};
    std::string m_sessionConfig;
    std::optional<HttpMessageWriter> m_writer;
    std::optional<HttpMessageReader> m_reader;
};

} // namespace mrl::detail
