#pragma once

#include "http/ServerSettings.h"
#include "soap/RequestProcessor.h"

#include <Poco/Net/HTTPRequestHandler.h>

#include <atomic>
#include <string>

namespace mrl::bus {

class HttpInputStream;

/// One HTTP request: SOAP for POST, a page that explains the bus for GET /, a status for all else.
class RequestHandler : public Poco::Net::HTTPRequestHandler {
public:
    /// @param busy how many requests are being answered; counts this one while it is.
    RequestHandler(RequestProcessor& processor, const ServerSettings& settings, std::atomic<int>& busy)
        : m_processor(processor)
        , m_settings(settings)
        , m_busy(busy) {
        ++m_busy;
    }
    ~RequestHandler() override { --m_busy; }

    void handleRequest(Poco::Net::HTTPServerRequest& request,
                       Poco::Net::HTTPServerResponse& response) override;

private:
    void handle(Poco::Net::HTTPServerRequest& request, Poco::Net::HTTPServerResponse& response);
    void answerSoap(Poco::Net::HTTPServerRequest& request, Poco::Net::HTTPServerResponse& response);

    Answer answerTo(HttpInputStream& body, const std::string& contentType);

    RequestProcessor& m_processor;
    const ServerSettings& m_settings;
    std::atomic<int>& m_busy;
};

} // namespace mrl::bus
