#include "TavelTK/TavelTKError.h"

#include <algorithm>
#include <array>

namespace {

using enum TavelTKError;

constexpr std::array s_errors{
    TavelTKErrorInfo{connectionBroke, "HBL-BIT-0006", "connectionBroke",
                     "The connection broke while the reply was being read."},
    TavelTKErrorInfo{badUrl, "HBL-BIT-0010", "badUrl", "The endpoint is not a usable URL."},
    TavelTKErrorInfo{hostUnknown, "HBL-BIT-0011", "hostUnknown", "The host is unknown."},
    TavelTKErrorInfo{connectionRefused, "HBL-BIT-0012", "connectionRefused", "The connection was refused."},
    TavelTKErrorInfo{connectTimedOut, "HBL-BIT-0013", "connectTimedOut", "Connecting took too long."},
    TavelTKErrorInfo{connectFailed, "HBL-BIT-0014", "connectFailed", "The connection cannot be made."},
    TavelTKErrorInfo{sendFailed, "HBL-BIT-0015", "sendFailed", "The request cannot be sent."},
    TavelTKErrorInfo{sendTimedOut, "HBL-BIT-0016", "sendTimedOut", "Sending the request took too long."},
    TavelTKErrorInfo{closedBeforeReply, "HBL-BIT-0017", "closedBeforeReply",
                     "The connection was closed before any reply."},
    TavelTKErrorInfo{receiveTimedOut, "HBL-BIT-0018", "receiveTimedOut", "The reply took too long."},
    TavelTKErrorInfo{badAttachment, "HBL-BIT-0019", "badAttachment", "An attachment cannot be decoded."},
    TavelTKErrorInfo{badHttpReply, "HBL-BIT-0020", "badHttpReply", "The reply is not well-formed HTTP."},
    TavelTKErrorInfo{notSoapReply, "HBL-BIT-0021", "notSoapReply", "The reply is not a SOAP message."},
    TavelTKErrorInfo{wrongCharset, "HBL-BIT-0022", "wrongCharset", "The reply is not in UTF-8."},
    TavelTKErrorInfo{badMultipart, "HBL-BIT-0023", "badMultipart",
                     "The reply is not a well-formed multipart message."},
    TavelTKErrorInfo{replyTooLarge, "HBL-BIT-0024", "replyTooLarge", "The reply exceeds a limit."},
    TavelTKErrorInfo{badArgument, "HBL-BIT-0025", "badArgument", "An argument cannot be used."},
    TavelTKErrorInfo{unsupported, "HBL-BIT-0026", "unsupported", "The operation is not offered."},
    TavelTKErrorInfo{echoFailed, "HBL-BIT-0027", "echoFailed", "The echo file cannot be written."},
    TavelTKErrorInfo{redirected, "HBL-BIT-0028", "redirected",
                     "The peer redirects the request, which is not followed."},
    TavelTKErrorInfo{authenticationRequired, "HBL-BIT-0029", "authenticationRequired",
                     "The peer asks for authentication."},
    TavelTKErrorInfo{tlsFailed, "HBL-BIT-0030", "tlsFailed", "The TLS connection failed."},
    TavelTKErrorInfo{tlsTimedOut, "HBL-BIT-0031", "tlsTimedOut", "Setting up TLS took too long."},
    TavelTKErrorInfo{certificateExpired, "HBL-BIT-0032", "certificateExpired",
                     "The peer's certificate is not valid at this time."},
    TavelTKErrorInfo{certificateWrongHost, "HBL-BIT-0033", "certificateWrongHost",
                     "The peer's certificate belongs to another host."},
    TavelTKErrorInfo{certificateUntrusted, "HBL-BIT-0034", "certificateUntrusted",
                     "The peer's certificate comes from no trusted authority."},
    TavelTKErrorInfo{certificateRefused, "HBL-BIT-0035", "certificateRefused",
                     "The peer's certificate cannot be accepted."},
    TavelTKErrorInfo{clientCertificateRefused, "HBL-BIT-0036", "clientCertificateRefused",
                     "The peer does not accept this side's certificate."},
    TavelTKErrorInfo{tlsSetupFailed, "HBL-BIT-0037", "tlsSetupFailed", "TLS cannot be set up."},
    TavelTKErrorInfo{proxyFailed, "HBL-BIT-0040", "proxyFailed", "The proxy makes no connection."},
    TavelTKErrorInfo{proxyAuthenticationRequired, "HBL-BIT-0041", "proxyAuthenticationRequired",
                     "The proxy asks for authentication."}};

static_assert(std::ranges::is_sorted(s_errors, {}, &TavelTKErrorInfo::error));

} // namespace

std::span<const TavelTKErrorInfo> tavelTKErrors() {
    return s_errors;
}

const TavelTKErrorInfo* findTavelTKError(int errorCode) {
    const auto found = std::ranges::lower_bound(s_errors, static_cast<TavelTKError>(errorCode), {},
                                                &TavelTKErrorInfo::error);
    return found != s_errors.end() && static_cast<int>(found->error) == errorCode ? &*found : nullptr;
}
