#pragma once

#include "http/BusServer.h"
#include "soap/RequestProcessor.h"
#include "store/ContentStore.h"

#include <Poco/Net/HTTPClientSession.h>
#include <Poco/Net/HTTPRequest.h>
#include <Poco/Net/HTTPResponse.h>
#include <Poco/StreamCopier.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace mrl::bus {

/// A bus with the sample content on a free loopback port, and a plain HTTP client.
class BusFixture : public testing::Test {
protected:
    struct Reply {
        int status = 0;
        std::string contentType;
        std::string allow;
        std::string body;
    };

    static StoreSettings storeSettings() {
        StoreSettings settings;
        settings.seams.now = [] { return std::string("2024-05-31T09:00:00.000Z"); };
        return settings;
    }

    static ServerSettings serverSettings() {
        ServerSettings settings;
        settings.port = 0;
        settings.maxBodyBytes = 1U << 20U;
        return settings;
    }

    /// One request over `session`, which is kept for the next.
    static Reply send(Poco::Net::HTTPClientSession& session, const std::string& method,
                      const std::string& path, const std::string& contentType, const std::string& body,
                      bool chunked = false) {
        Poco::Net::HTTPRequest request(method, path, Poco::Net::HTTPMessage::HTTP_1_1);
        if (!contentType.empty())
            request.setContentType(contentType);
        if (chunked)
            request.setChunkedTransferEncoding(true);
        else if (!body.empty() || method == "POST")
            request.setContentLength64(static_cast<Poco::Int64>(body.size()));
        session.sendRequest(request) << body << std::flush;
        Poco::Net::HTTPResponse response;
        Reply reply;
        Poco::StreamCopier::copyToString(session.receiveResponse(response), reply.body);
        reply.status = response.getStatus();
        reply.contentType = response.getContentType();
        reply.allow = response.get("Allow", "");
        return reply;
    }

    Reply post(const std::string& envelope) {
        Poco::Net::HTTPClientSession session("127.0.0.1", port());
        return send(session, "POST", "/", "text/xml; charset=utf-8", envelope);
    }

    Poco::UInt16 port() const {
        const std::string url = m_server->url();
        return static_cast<Poco::UInt16>(std::stoi(url.substr(url.rfind(':') + 1)));
    }

    /// A whole request: `operation` of the content manager with its parameters as XML.
    static std::string envelope(const std::string& operation, const std::string& parameters) {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
               "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\""
               " xmlns:SOAP-ENC=\"http://schemas.xmlsoap.org/soap/encoding/\""
               " xmlns:bus=\"http://developer.vantor.example/schemas/tavel/3/\""
               " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
               " xmlns:xs=\"http://www.w3.org/2001/XMLSchema\"><SOAP-ENV:Body><m:" +
               operation + " xmlns:m=\"http://developer.vantor.example/schemas/contentManagerService/1\">" +
               parameters + "</m:" + operation + "></SOAP-ENV:Body></SOAP-ENV:Envelope>";
    }

    static std::string element(const std::string& name, const std::string& type, const std::string& content) {
        return "<bus:" + name + " xsi:type=\"" + type + "\">" + content + "</bus:" + name + ">";
    }

    static std::string list(const std::string& name, const std::string& type, const std::string& items) {
        return "<bus:" + name + " xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"bus:" + type + "[]\">" +
               items + "</bus:" + name + ">";
    }

    /// A query for the properties, given with blanks between them.
    static std::string query(const std::string& searchPath, const std::string& properties,
                             const std::string& more = {}) {
        std::string items;
        for (std::size_t at = 0; at < properties.size();) {
            const std::size_t end = std::min(properties.find(' ', at), properties.size());
            items += "<item xsi:type=\"bus:propEnum\">" + properties.substr(at, end - at) + "</item>";
            at = end + 1;
        }
        return envelope("query", element("searchPath", "bus:searchPathMultipleObject", searchPath) +
                                     list("properties", "propEnum", items) + more);
    }

    ContentStore m_store{storeSettings()};
    RequestProcessor m_processor{m_store};
    std::unique_ptr<BusServer> m_server = std::make_unique<BusServer>(m_processor, serverSettings());
};

} // namespace mrl::bus
