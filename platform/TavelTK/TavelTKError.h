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
    echoFailed = 27
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
