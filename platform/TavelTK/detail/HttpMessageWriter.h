#pragma once

#include "PLQStreams/PLQOutputStream.h"
#include "TavelTK/TavelTKMessageWriter.h"
#include "TavelTK/detail/ChunkedOutput.h"
#include "TavelTK/detail/HeldBytes.h"
#include "TavelTK/detail/ReplyHead.h"

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace mrl::detail {

/// Writes one request: a single XML body, or SOAP with attachments as multipart/related.
///
/// The request is held in memory up to its end when its length is to be sent. In chunks it goes out as it
/// is written, once it is known whether it is multipart: at once when attachments were announced, otherwise
/// when the first one is opened or the request ends.
///
/// Where the peer is asked whether it wants the request ("expect-continue") and answers for good, nothing
/// more is sent and the request counts as sent: the reply says why.
class HttpMessageWriter : public TavelTKMessageWriter {
public:
    /// @param in where the peer's answer to an expectation comes from.
    HttpMessageWriter(Wire& wire, ReplyInput& in, std::string sessionConfig, bool hasAttachments);

    void setEnvelope(HBLIDOM_Element& envelope) override;
    PLQOutputStream& openEnvelope(const char* soapAction) override;
    PLQOutputStream& openEnvelope() override;
    void closeEnvelope(PLQOutputStream& envelope) override;
    void addAttachment(const char* contentType, const char* encoding, const char* headers, const char* data,
                       std::size_t length, const char* contentId) override;
    void addAttachment(const char* contentType, const char* encoding, const char* data, std::size_t length,
                       const char* contentId) override;
    void addAttachment(HBLIDOM_Element& attachment, const char* contentId) override;
    PLQOutputStream& openAttachment(const char* contentType, const char* encoding, const char* headers,
                                    const char* contentId, int flag) override;
    PLQOutputStream& openAttachment(const char* contentType, const char* encoding, const char* contentId,
                                    int flag) override;
    void closeAttachment(PLQOutputStream& attachment) override;
    std::string* getNewAttachmentID() override;
    /// Ends the request: sends the rest of it, or closes the connection if it cannot be whole.
    void close() override;
    void setResponseStatus(int status, const char* reason) override;

    /// Whether the whole request has been handed to the network.
    bool isSent() const { return m_state == State::sent; }

    /// The reply's head, where it came before the body was sent.
    std::optional<ReplyHead> takeEarlyReply() { return std::move(m_earlyReply); }

private:
    enum class State { fresh, envelope, betweenParts, attachment, sent, abandoned };

    class Stream : public PLQOutputStream {
    public:
        explicit Stream(HttpMessageWriter& writer)
            : m_writer(writer) {}
        void write(const char* data, std::size_t length) override { m_writer.write({data, length}); }

    private:
        HttpMessageWriter& m_writer;
    };

    void write(std::string_view bytes);
    void put(std::string_view bytes);
    void send();
    void startMultipart();
    void startPart(std::string_view contentType, std::string_view furtherHeaders, std::string_view contentId);
    void startSending(const std::string& framing);
    void sendHead(const std::string& framing);
    void sendHeld(std::string head);
    void awaitConsent();
    std::string_view clean(const char* text, std::string_view what, bool mayQuote = false) const;
    std::string cleanHeaders(const char* headers) const;
    bool isBrokenOff() const;

    Wire& m_wire;
    ReplyInput& m_in;
    const std::string m_sessionConfig;
    const std::string m_id; // of this exchange
    const bool m_hasAttachments;
    // A failure of the host between opening and closing closes streams and writer in its handlers. What
    // was written up to then must not pass for a whole request, so it is noticed by comparing these.
    const std::exception_ptr m_handledAtStart;
    const int m_uncaughtAtStart;

    State m_state = State::fresh;
    Stream m_stream{*this};
    std::string m_soapAction;
    std::string m_boundary; // empty while the request is no multipart
    HeldBytes m_held;
    std::optional<ChunkedOutput> m_chunks;
    std::optional<ReplyHead> m_earlyReply;
    std::unordered_set<std::string> m_contentIds;
};

} // namespace mrl::detail
