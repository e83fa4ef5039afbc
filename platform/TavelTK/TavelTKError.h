#pragma once

#include "HBLCore/MRLExport.h"

#include <span>

/// What can go wrong between this process and the bus. The value is TavelTKException::getErrorCode(); it
/// never changes its meaning.
enum class TavelTKError : int {
    /// After the request was sent and the reply had begun: the peer closed or reset the connection before
    /// the reply's stated end. The one failure for which sending the request again makes sense.
    connectionBroke = 6,
    /// Before anything is sent: the endpoint is no URL that this toolkit can use.
    badUrl = 10,
    /// While connecting: the host's name has no address.
    hostUnknown = 11,
    /// While connecting: nothing listens at the host's port.
    connectionRefused = 12,
    /// While connecting: the host did not answer in time.
    connectTimedOut = 13,
    /// While connecting: any other failure, such as an unreachable network.
    connectFailed = 14,
    /// While sending: the peer closed or reset the connection before it had the whole request.
    sendFailed = 15,
    /// While sending: the peer takes no more bytes, or the exchange's time limit has passed.
    sendTimedOut = 16,
    /// After the request was sent: the peer closed the connection without a single byte of a reply.
    closedBeforeReply = 17,
    /// While awaiting or reading the reply: no byte in time, or the exchange's time limit has passed.
    receiveTimedOut = 18,
    /// While reading the reply: an attachment's Base64, quoted-printable or gzip is damaged.
    badAttachment = 19,
    /// While reading the reply: what came is not well-formed HTTP.
    badHttpReply = 20,
    /// While reading the reply: a status or content type that no SOAP reply has.
    notSoapReply = 21,
    /// While reading the reply: text in a character encoding other than UTF-8.
    wrongCharset = 22,
    /// While reading the reply: a multipart message that breaks its own rules.
    badMultipart = 23,
    /// While reading the reply: header, envelope, body or number of parts exceed their limit.
    replyTooLarge = 24,
    /// Before anything is sent: a property, header, action or time limit that cannot be used.
    badArgument = 25,
    /// Any time: an operation or a form of message that this toolkit does not offer.
    unsupported = 26,
    /// Any time: the file for the echo of the traffic cannot be opened or written.
    echoFailed = 27,
    /// While reading the reply: the peer sends the request elsewhere, which is never followed.
    redirected = 28,
    /// While reading the reply: the peer asks for other credentials than were sent, if any (status 401).
    authenticationRequired = 29,
    /// While connecting, or later: TLS failed for another reason than those that follow.
    tlsFailed = 30,
    /// While connecting: the peer did not set up TLS in time.
    tlsTimedOut = 31,
    /// While connecting: the peer's certificate, or one that vouches for it, is out of date or not yet valid.
    certificateExpired = 32,
    /// While connecting: the peer's certificate is made out to others.
    certificateWrongHost = 33,
    /// While connecting: no authority that is trusted here vouches for the peer's certificate.
    certificateUntrusted = 34,
    /// While connecting: the peer's certificate cannot be taken for another reason.
    certificateRefused = 35,
    /// While connecting, sending or awaiting the reply: the peer turns down this side's certificate, or the
    /// lack of one.
    clientCertificateRefused = 36,
    /// Before anything is sent: a file of authorities, certificate or key cannot be used.
    tlsSetupFailed = 37,
    /// While connecting: the proxy makes no tunnel to the peer.
    proxyFailed = 40,
    /// While connecting, or reading the reply: the proxy asks for other credentials than were sent, if any.
    proxyAuthenticationRequired = 41
};

/// One row of the list of errors.
struct TavelTKErrorInfo {
    TavelTKError error;
    const char* id;   ///< the message's id, "HBL-BIT-0006"
    const char* name; ///< the enumerator's name
    const char* text; ///< one sentence in English
};

/// All errors, by number.
MRL_EXPORT std::span<const TavelTKErrorInfo> tavelTKErrors();

/// The row of an error code; null for a code that is not in the list.
MRL_EXPORT const TavelTKErrorInfo* findTavelTKError(int errorCode);
