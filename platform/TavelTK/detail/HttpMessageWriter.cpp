#include "TavelTK/detail/HttpMessageWriter.h"

#include "HBLCore/HBLBase64.h"
#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/Headers.h"

#include <algorithm>
#include <array>

namespace mrl::detail {

namespace {

constexpr std::string_view s_rootId = "envelope@mrl";
constexpr std::string_view s_xmlType = "text/xml; charset=utf-8";

std::string base64(std::string_view text) {
    std::string coded(HBLBase64EncodedSize(text.size(), 0), '\0');
    HBLBase64Encode(text.data(), text.size(), coded.data(), 0);
    return coded;
}

/// The bytes of a part are sent as they are; these tell how the host has coded them, anything else that is
/// given as an encoding is a character encoding.
bool isTransferEncoding(std::string_view encoding) {
    static constexpr std::array<std::string_view, 5> s_names{"7bit", "8bit", "binary", "base64",
                                                             "quoted-printable"};
    return std::ranges::any_of(s_names, [&](std::string_view name) { return sameText(name, encoding); });
}

} // namespace

HttpMessageWriter::HttpMessageWriter(Wire& wire, std::string sessionConfig, bool hasAttachments)
    : m_wire(wire)
    , m_sessionConfig(std::move(sessionConfig))
    , m_hasAttachments(hasAttachments)
    , m_handledAtStart(std::current_exception())
    , m_uncaughtAtStart(std::uncaught_exceptions()) {}

bool HttpMessageWriter::isBrokenOff() const {
    return std::uncaught_exceptions() > m_uncaughtAtStart || std::current_exception() != m_handledAtStart;
}

std::string_view HttpMessageWriter::clean(const char* text, std::string_view what) const {
    const std::string_view value = text ? text : "";
    if (std::ranges::any_of(value, [](unsigned char c) { return c < ' ' || c > '~' || c == '"'; }))
        fail(TavelTKError::badArgument, TavelTKPhase::prepare, m_wire.peer(),
             "the " + std::string(what) + " '" + printable(value) +
                 "' contains other characters than printable ASCII without quotes");
    return value;
}

std::string HttpMessageWriter::cleanHeaders(const char* headers) const {
    std::string lines;
    std::string_view rest = headers ? headers : "";
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.empty())
            continue;
        if (Headers checked; !checked.add(line))
            fail(TavelTKError::badArgument, TavelTKPhase::prepare, m_wire.peer(),
                 "the attachment header '" + printable(line) + "' is not of the form 'Name: value'");
        lines.append(line).append("\r\n");
    }
    return lines;
}

PLQOutputStream& HttpMessageWriter::openEnvelope(const char* soapAction) {
    HBL_ASSERT_NAMED(m_state == State::fresh, "The openEnvelope() method can only be called once.");
    m_soapAction = clean(soapAction, "SOAP action");
    return hblRethrowing("TavelTKMessageWriter::openEnvelope", [&]() -> PLQOutputStream& {
        m_state = State::envelope;
        if (m_hasAttachments)
            startMultipart();
        return m_stream;
    });
}

PLQOutputStream& HttpMessageWriter::openEnvelope() {
    return openEnvelope("");
}

void HttpMessageWriter::closeEnvelope(PLQOutputStream&) {
    if (m_state == State::envelope)
        m_state = State::betweenParts;
}

PLQOutputStream& HttpMessageWriter::openAttachment(const char* contentType, const char* encoding,
                                                   const char* headers, const char* contentId, int) {
    HBL_ASSERT_NAMED(m_state == State::betweenParts, "An attachment follows the envelope or an attachment.");
    return hblRethrowing("TavelTKMessageWriter::openAttachment", [&]() -> PLQOutputStream& {
        std::string type(clean(contentType, "content type"));
        if (type.empty())
            type = "application/octet-stream";
        const std::string_view code = clean(encoding, "encoding");
        std::string further = cleanHeaders(headers);
        if (isTransferEncoding(code))
            further.append("Content-Transfer-Encoding: ").append(code).append("\r\n");
        else
            further.append("Content-Transfer-Encoding: binary\r\n");
        if (!code.empty() && !isTransferEncoding(code))
            type.append("; charset=").append(code);
        std::string_view id = clean(contentId, "content id");
        if (id.size() > 2 && id.front() == '<' && id.back() == '>')
            id = id.substr(1, id.size() - 2);
        if (m_boundary.empty())
            startMultipart();
        put("\r\n--" + m_boundary);
        startPart(type, further, id);
        m_state = State::attachment;
        return m_stream;
    });
}

PLQOutputStream& HttpMessageWriter::openAttachment(const char* contentType, const char* encoding,
                                                   const char* contentId, int flag) {
    return openAttachment(contentType, encoding, "", contentId, flag);
}

void HttpMessageWriter::closeAttachment(PLQOutputStream&) {
    if (m_state == State::attachment)
        m_state = State::betweenParts;
}

void HttpMessageWriter::addAttachment(const char* contentType, const char* encoding, const char* headers,
                                      const char* data, std::size_t length, const char* contentId) {
    PLQOutputStream& stream = openAttachment(contentType, encoding, headers, contentId, 1);
    stream.write(data, length);
    closeAttachment(stream);
}

void HttpMessageWriter::addAttachment(const char* contentType, const char* encoding, const char* data,
                                      std::size_t length, const char* contentId) {
    addAttachment(contentType, encoding, "", data, length, contentId);
}

std::string* HttpMessageWriter::getNewAttachmentID() {
    return hblNew<std::string>(HBL_HERE, m_wire.newToken() + "@mrl");
}

void HttpMessageWriter::write(std::string_view bytes) {
    HBL_ASSERT_NAMED(m_state == State::envelope || m_state == State::attachment,
                     "Nothing can be written to a stream that is not open.");
    hblRethrowing("TavelTKMessageWriter::write", [&] { put(bytes); });
}

void HttpMessageWriter::put(std::string_view bytes) {
    if (!m_chunks) {
        m_held.append(bytes);
        return;
    }
    try {
        m_chunks->write(bytes);
    } catch (...) {
        m_state = State::abandoned; // what the host's handlers close must not go on sending
        throw;
    }
}

std::string HttpMessageWriter::head() const {
    const Endpoint& endpoint = m_wire.endpoint();
    std::string lines = "POST " + endpoint.path + " HTTP/1.1\r\nHost: " + m_wire.peer() + "\r\n";
    lines.append("User-Agent: mrl\r\nAccept: text/xml, multipart/related\r\nSOAPAction: \"");
    lines.append(m_soapAction).append("\"\r\nContent-Type: ");
    if (m_boundary.empty())
        lines.append(s_xmlType);
    else
        lines.append("multipart/related; type=\"text/xml\"; start=\"<")
            .append(s_rootId)
            .append(">\"; boundary=\"")
            .append(m_boundary)
            .append("\"");
    lines.append("\r\n");
    if (!m_sessionConfig.empty())
        lines.append("X-MRL-Session-Config: ").append(base64(m_sessionConfig)).append("\r\n");
    return lines;
}

void HttpMessageWriter::startChunks() {
    m_chunks.emplace(m_wire, head(), static_cast<std::size_t>(m_wire.options().chunkSize));
}

void HttpMessageWriter::startMultipart() {
    m_boundary = "mrl-" + m_wire.newToken();
    std::string envelope;
    envelope.swap(m_held);
    if (m_wire.options().sendContentLength == 0)
        startChunks();
    put("--" + m_boundary);
    startPart(s_xmlType, "Content-Transfer-Encoding: binary\r\n", s_rootId);
    put(envelope);
}

void HttpMessageWriter::startPart(std::string_view contentType, std::string_view furtherHeaders,
                                  std::string_view contentId) {
    std::string lines = "\r\nContent-Type: ";
    lines.append(contentType).append("\r\n").append(furtherHeaders);
    lines.append("Content-ID: <").append(contentId).append(">\r\n\r\n");
    put(lines);
}

void HttpMessageWriter::close() {
    if (m_state == State::sent || m_state == State::abandoned)
        return;
    const bool isWhole = m_state == State::betweenParts && !isBrokenOff();
    m_state = State::abandoned;
    if (!isWhole)
        return m_wire.closeConnection();
    hblRethrowing("TavelTKMessageWriter::close", [&] { send(); });
    m_state = State::sent;
}

void HttpMessageWriter::send() {
    if (!m_boundary.empty())
        put("\r\n--" + m_boundary + "--\r\n");
    if (m_wire.options().sendContentLength == 0) {
        if (!m_chunks) {
            startChunks();
            m_chunks->write(m_held);
        }
        m_chunks->finish();
        m_chunks.reset();
    } else {
        std::string message = head();
        message.append("Content-Length: ").append(std::to_string(m_held.size())).append("\r\n\r\n");
        // One packet for what fits into a few; a large body is sent from where it is.
        if (m_held.size() <= 65536) {
            m_wire.send(message.append(m_held));
        } else {
            m_wire.send(message);
            m_wire.send(m_held);
        }
    }
    m_held = {};
}

void HttpMessageWriter::setEnvelope(HBLIDOM_Element&) {
    fail(TavelTKError::unsupported, TavelTKPhase::prepare, m_wire.peer(),
         "setEnvelope() is not offered; write to the stream of openEnvelope()");
}

void HttpMessageWriter::addAttachment(HBLIDOM_Element&, const char*) {
    fail(TavelTKError::unsupported, TavelTKPhase::prepare, m_wire.peer(),
         "addAttachment() with an element is not offered; write to the stream of openAttachment()");
}

void HttpMessageWriter::setResponseStatus(int, const char*) {
    fail(TavelTKError::unsupported, TavelTKPhase::prepare, m_wire.peer(),
         "setResponseStatus() is not offered; a client has no response to set");
}

} // namespace mrl::detail
