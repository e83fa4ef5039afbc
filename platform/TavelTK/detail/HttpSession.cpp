#include "TavelTK/detail/HttpSession.h"

#include "TavelTK/detail/Failure.h"

namespace mrl::detail {

namespace {

// It travels in a header, and peers limit those.
constexpr std::size_t s_maxSessionConfig = 4096;

} // namespace

HttpSession::HttpSession(Endpoint endpoint, const char* sessionConfig, int timeLimit,
                         const SessionOptions& options, const Surroundings& surroundings)
    : m_wire(std::move(endpoint), timeLimit, surroundings)
    , m_sessionConfig(sessionConfig ? sessionConfig : "") {
    m_wire.options() = options;
    if (timeLimit < 1)
        fail(TavelTKError::badArgument, TavelTKPhase::prepare, m_wire.peer(),
             "the time limit cannot be " + std::to_string(timeLimit) + " s; give 1 or more");
    if (m_sessionConfig.size() > s_maxSessionConfig)
        fail(TavelTKError::badArgument, TavelTKPhase::prepare, m_wire.peer(),
             "the session configuration has " + std::to_string(m_sessionConfig.size()) +
                 " bytes; give at most " + std::to_string(s_maxSessionConfig));
}

void HttpSession::setProperty(const std::string& name, int value) {
    HBL_ASSERT_NAMED(!m_writer, "Properties are set before the request is opened.");
    hblRethrowing("TavelTKSession::setProperty", [&] { m_wire.options().set(name, value); });
}

void HttpSession::setProperty(const std::string& name, const std::string& value) {
    HBL_ASSERT_NAMED(!m_writer, "Properties are set before the request is opened.");
    hblRethrowing("TavelTKSession::setProperty", [&] { m_wire.options().set(name, value); });
}

void HttpSession::echo(const char* fileName, const char* mode, int flag) {
    hblRethrowing("TavelTKSession::echo",
                  [&] { m_wire.echoTo(std::make_unique<EchoFile>(fileName, mode, flag != 0)); });
}

TavelTKMessageWriter& HttpSession::openRequest(int hasAttachments) {
    HBL_ASSERT_NAMED(!m_writer, "The openRequest() method can only be called once.");
    return hblRethrowing("TavelTKSession::openRequest", [&]() -> TavelTKMessageWriter& {
        m_wire.start();
        return m_writer.emplace(m_wire, m_in, m_sessionConfig, hasAttachments != 0);
    });
}

void HttpSession::closeRequest(TavelTKMessageWriter& writer) {
    HBL_ASSERT_NAMED(m_writer && &writer == &*m_writer, "Unexpected object.");
    writer.close();
}

TavelTKMessageReader& HttpSession::openResponse() {
    HBL_ASSERT_NAMED(m_writer && m_writer->isSent(), "The request has not been sent.");
    HBL_ASSERT_NAMED(!m_reader, "The openResponse() method can only be called once.");
    return hblRethrowing("TavelTKSession::openResponse", [&]() -> TavelTKMessageReader& {
        return m_reader.emplace(m_wire, m_in, m_writer->takeEarlyReply());
    });
}

void HttpSession::closeResponse(TavelTKMessageReader& reader) {
    HBL_ASSERT_NAMED(m_reader && &reader == &*m_reader, "Unexpected object.");
    m_reader->finish();
}

void HttpSession::release() {
    delete this;
}

void HttpSession::refuse(const char* operation) {
    m_wire.fail(TavelTKError::unsupported, TavelTKPhase::prepare,
                std::string(operation) + "() is not offered; use openRequest() and openResponse()");
}

void HttpSession::doRequest(HBLIDOM_Element&, HBLIDOM_Node&) {
    refuse("doRequest");
}

void HttpSession::sendRequest(HBLIDOM_Element&) {
    refuse("sendRequest");
}

void HttpSession::getResponse(HBLIDOM_Node&) {
    refuse("getResponse");
}

} // namespace mrl::detail
