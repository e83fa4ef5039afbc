#include "http/RequestHandler.h"

#include "http/HttpInputStream.h"
#include "http/HttpMessage.h"
#include "http/MultipartAnswer.h"
#include "store/StoreSeams.h"

#include <Poco/Exception.h>
#include <Poco/Net/HTTPServerRequest.h>
#include <Poco/Net/HTTPServerResponse.h>
#include <Poco/String.h>

#include <cstdio>

namespace mrl::bus {

namespace {

using Poco::Net::HTTPRequest;
using Poco::Net::HTTPResponse;
using Poco::Net::HTTPServerRequest;
using Poco::Net::HTTPServerResponse;

/// What of a refused body is read, so that the client hears the answer and not a broken connection.
constexpr std::uint64_t drainBytes = 1U << 20U;

constexpr const char* page = R"(mrl-bus: a bus of content services, for trying and testing clients.

POST a SOAP 1.1 envelope (Content-Type: text/xml) to this address, or one with attachments
(multipart/related). Services: contentManagerService with query, add, update, delete, logon, logoff;
reportService and batchReportService with run, wait, getOutput, cancel, release.
Search paths: /content/*  /content//report  /content/folder[@name='Sales']/report[@name='Revenue']
)";

void answerText(HTTPServerResponse& response, HTTPResponse::HTTPStatus status, const std::string& text) {
    response.setStatusAndReason(status);
    response.setContentType("text/plain; charset=utf-8");
    response.setContentLength64(static_cast<Poco::Int64>(text.size()));
    response.sendBuffer(text.data(), text.size());
}

/// Without a length a body ends with the connection only, and it would be waited for in vain.
bool tellsItsLength(const HTTPServerRequest& request) {
    return request.hasContentLength() || request.getChunkedTransferEncoding();
}

bool isReadable(const HTTPServerRequest& request) {
    if (!HttpMessage::reads(request.getContentType()))
        return false;
    const std::string coding = request.get("Content-Encoding", "identity");
    return Poco::icompare(coding, "identity") == 0;
}

} // namespace

void RequestHandler::handleRequest(HTTPServerRequest& request, HTTPServerResponse& response) {
    try {
        handle(request, response);
    } catch (const Poco::Exception& e) { // the client went away, or sent a header that cannot be read
        if (!response.sent())
            answerText(response, HTTPResponse::HTTP_BAD_REQUEST,
                       "The request cannot be read: " + e.displayText() + "\n");
        else
            std::fprintf(stderr, "mrl-bus: %s: %s\n", request.clientAddress().toString().c_str(),
                         e.displayText().c_str());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "mrl-bus: %s\n", e.what());
        if (!response.sent())
            answerText(response, HTTPResponse::HTTP_INTERNAL_SERVER_ERROR, "The bus failed.\n");
    }
}

void RequestHandler::handle(HTTPServerRequest& request, HTTPServerResponse& response) {
    const bool post = request.getMethod() == HTTPRequest::HTTP_POST;
    const bool sized = tellsItsLength(request);
    if (post && !sized) {
        response.setKeepAlive(false);
        answerText(response, HTTPResponse::HTTP_LENGTH_REQUIRED,
                   "A POST needs a Content-Length, or Transfer-Encoding: chunked.\n");
        return;
    }
    if (post && isReadable(request) &&
        (!request.hasContentLength() ||
         static_cast<std::uint64_t>(request.getContentLength64()) <= m_settings.maxBodyBytes)) {
        answerSoap(request, response);
        return;
    }
    const bool get = request.getMethod() == HTTPRequest::HTTP_GET;
    HttpInputStream body(request.stream(), drainBytes,
                         std::chrono::steady_clock::now() + m_settings.idleTimeout);
    if (sized ? !body.drain(drainBytes) : !get)
        response.setKeepAlive(false);
    if (get && request.getURI() == "/") {
        answerText(response, HTTPResponse::HTTP_OK, page);
    } else if (!post) {
        response.set("Allow", request.getURI() == "/" ? "GET, POST" : "POST");
        answerText(response, HTTPResponse::HTTP_METHOD_NOT_ALLOWED,
                   "mrl-bus answers POST with a SOAP envelope, and GET of / with a page about itself.\n");
    } else if (!isReadable(request)) {
        answerText(response, HTTPResponse::HTTP_UNSUPPORTED_MEDIA_TYPE,
                   "mrl-bus reads SOAP 1.1 envelopes of the content type text/xml, and multipart/related "
                   "with such a part first; neither compressed as a whole.\n");
    } else {
        answerText(response, HTTPResponse::HTTP_REQUEST_ENTITY_TOO_LARGE,
                   "The request has more than " + std::to_string(m_settings.maxBodyBytes) + " bytes.\n");
    }
}

void RequestHandler::answerSoap(HTTPServerRequest& request, HTTPServerResponse& response) {
    HttpInputStream body(request.stream(), m_settings.maxBodyBytes,
                         std::chrono::steady_clock::now() + m_settings.requestTimeout);
    const Answer answer = answerTo(body, request.getContentType());
    if (!body.drain(drainBytes))
        response.setKeepAlive(false);
    if (body.exceeded()) {
        response.setKeepAlive(false);
        answerText(response, HTTPResponse::HTTP_REQUEST_ENTITY_TOO_LARGE,
                   "The request has more than " + std::to_string(m_settings.maxBodyBytes) +
                       " bytes, or took longer than " + std::to_string(m_settings.requestTimeout.count()) +
                       " s to arrive.\n");
        return;
    }
    response.setStatusAndReason(answer.fault ? HTTPResponse::HTTP_INTERNAL_SERVER_ERROR
                                             : HTTPResponse::HTTP_OK);
    if (answer.attachments.empty()) {
        response.setContentType("text/xml; charset=utf-8");
        response.setContentLength64(static_cast<Poco::Int64>(answer.envelope.size()));
        response.sendBuffer(answer.envelope.data(), answer.envelope.size());
        return;
    }
    const MultipartAnswer parts(answer, "mrl-bus-" + StoreSeams::ofSystem().newId());
    response.setContentType(parts.contentType());
    response.setChunkedTransferEncoding(true);
    parts.write(response.send());
}

Answer RequestHandler::answerTo(HttpInputStream& body, const std::string& contentType) {
    try {
        HttpMessage message(body, contentType);
        return m_processor.process(message);
    } catch (const Unreadable& e) {
        return RequestProcessor::unreadable(e.what());
    }
}

} // namespace mrl::bus
