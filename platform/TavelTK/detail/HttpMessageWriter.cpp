#include "TavelTK/detail/HttpMessageWriter.h"

#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/Headers.h"
#include "TavelTK/detail/RequestHead.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mrl::detail {

namespace {

constexpr std::string_view s_rootId = "envelope@mrl";
constexpr std::size_t s_gatherSize = 65536;
constexpr std::string_view s_xmlType = "text/xml; charset=utf-8";

/// The bytes of a part are sent as they are; these tell how the host has coded them, anything else that is
/// given as an encoding is a character encoding.
bool isTransferEncoding(std::string_view encoding) {
    static constexpr std::array<std::string_view, 5> s_names{"7bit", "8bit", "binary", "base64",
                                                             "quoted-printable"};
    return std::ranges::any_of(s_names, [&](std::string_view name) { return sameText(name, encoding); });
}

} // namespace

HttpMessageWriter::HttpMessageWriter(Wire& wire, ReplyInput& in, std::string sessionConfig,
                                     bool hasAttachments)
    : m_wire(wire)
    , m_in(in)
    , m_sessionConfig(std::move(sessionConfig))
    , m_id(wire.newToken())
    , m_hasAttachments(hasAttachments)
    , m_handledAtStart(std::current_exception())
    , m_uncaughtAtStart(std::uncaught_exceptions()) {}

bool HttpMessageWriter::isBrokenOff() const {
    return std::uncaught_exceptions() > m_uncaughtAtStart || std::current_exception() != m_handledAtStart;
}

std::string_view HttpMessageWriter::clean(const char* text, std::string_view what, bool mayQuote) const {
    const std::string_view value = text ? text : "";
    const auto isBad = [mayQuote](unsigned char c) { return c < ' ' || c > '~' || (c == '"' && !mayQuote); };
    if (std::ranges::any_of(value, isBad))
        fail(TavelTKError::badArgument, TavelTKPhase::prepare, m_wire.peer(),
             "the " + std::string(what) + " '" + printable(value) +
                 "' contains other characters than printable ASCII" + (mayQuote ? "" : " without quotes"));
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
    return hblRethrowing("TavelTKMessageWriter::openEnvelope", [&]() -> PLQOutputStream& {
        m_soapAction = clean(soapAction, "SOAP action");
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
        std::string type(clean(contentType, "content type", true));
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
        if (id == s_rootId || (!id.empty() && !m_contentIds.emplace(id).second))
            fail(TavelTKError::badArgument, TavelTKPhase::prepare, m_wire.peer(),
                 "the content id '" + printable(id) + "' is that of another part of the message");
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
    return hblRethrowing("TavelTKMessageWriter::getNewAttachmentID",
                         [&] { return hblNew<std::string>(HBL_HERE, m_wire.newToken() + "@mrl"); });
}

void HttpMessageWriter::write(std::string_view bytes) {
    HBL_ASSERT_NAMED(m_state == State::envelope || m_state == State::attachment,
                     "Nothing can be written to a stream that is not open.");
    hblRethrowing("TavelTKMessageWriter::write", [&] { put(bytes); });
}

void HttpMessageWriter::put(std::string_view bytes) {
    if (m_earlyReply)
        return;
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

void HttpMessageWriter::startSending(const std::string& framing) {
    try {
        sendHead(framing);
    } catch (...) {
        m_state = State::abandoned; // what the host's handlers close must not start again
        throw;
    }
}

void HttpMessageWriter::sendHead(const std::string& framing) {
    const std::string type = m_boundary.empty()
                                 ? std::string(s_xmlType)
                                 : "multipart/related; type=\"text/xml\"; start=\"<" + std::string(s_rootId) +
                                       ">\"; boundary=\"" + m_boundary + "\"";
    std::string head = requestHead(m_wire, m_soapAction, type, m_sessionConfig, m_id) + framing;
    const bool isAsking = m_wire.options().expectContinue != 0;
    head.append(isAsking ? "Expect: 100-continue\r\n\r\n" : "\r\n");
    if (isAsking) {
        m_wire.send(head);
        awaitConsent();
        head.clear();
    }
    if (m_earlyReply)
        return;
    if (m_wire.options().sendContentLength == 0) {
        m_chunks.emplace(m_wire, head, static_cast<std::size_t>(m_wire.options().chunkSize));
        m_held.drain([this](std::string_view block) { m_chunks->write(block); });
        return;
    }
    sendHeld(std::move(head));
}

// What fits into a few packets goes out in one piece with the head, for a peer to wake up once.
void HttpMessageWriter::sendHeld(std::string head) {
    const auto sendGathered = [&] {
        if (!head.empty())
            m_wire.send(std::exchange(head, {}));
    };
    m_held.drain([&](std::string_view block) {
        if (head.size() + block.size() > s_gatherSize)
            sendGathered();
        if (block.size() >= s_gatherSize)
            m_wire.send(block);
        else
            head.append(block);
    });
    sendGathered();
}

// A peer that knows nothing of expectations is silent, and gets the body after a while.
void HttpMessageWriter::awaitConsent() {
    std::int64_t budget = m_wire.options().maxHeaderBytes;
    while (m_in.comesWithin(milliseconds(m_wire.options().expectContinue))) {
        ReplyHead head = ReplyHead::readOne(m_in, budget);
        if (head.status == 100)
            return;
        if (!head.isInterim()) {
            m_earlyReply = std::move(head);
            return;
        }
    }
}

void HttpMessageWriter::startMultipart() {
    m_boundary = "mrl-" + m_id;
    HeldBytes envelope = std::exchange(m_held, {});
    if (m_wire.options().sendContentLength == 0)
        startSending("Transfer-Encoding: chunked\r\n");
    put("--" + m_boundary);
    startPart(s_xmlType, "Content-Transfer-Encoding: binary\r\n", s_rootId);
    envelope.drain([this](std::string_view block) { put(block); });
}

void HttpMessageWriter::startPart(std::string_view contentType, std::string_view furtherHeaders,
                                  std::string_view contentId) {
    std::string lines = "\r\nContent-Type: ";
    lines.append(contentType).append("\r\n").append(furtherHeaders);
    if (!contentId.empty())
        lines.append("Content-ID: <").append(contentId).append(">\r\n");
    put(lines.append("\r\n"));
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
    if (m_wire.options().sendContentLength != 0)
        startSending("Content-Length: " + std::to_string(m_held.size()) + "\r\n");
    else if (!m_chunks && !m_earlyReply)
        startSending("Transfer-Encoding: chunked\r\n");
    if (m_chunks)
        m_chunks->finish();
    m_chunks.reset();
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
