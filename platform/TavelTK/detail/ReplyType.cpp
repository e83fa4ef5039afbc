#include "TavelTK/detail/ReplyType.h"

#include "TavelTK/detail/Failure.h"

#include <Poco/Net/MediaType.h>

namespace mrl::detail {

namespace {

constexpr milliseconds s_excerptTime{500};

/// The first bytes of a body that nobody will read, or what comes of them in a short time.
std::string excerpt(const ReplyHead& head, ReplyBody& body, Wire& wire) {
    if (head.status == 204 || head.status == 304)
        return {};
    std::string text(256, '\0');
    std::size_t filled = 0;
    wire.hurry(s_excerptTime);
    try {
        while (filled < text.size()) {
            const std::size_t count = body.read(text.data() + filled, text.size() - filled);
            if (count == 0)
                break;
            filled += count;
        }
    } catch (const TavelTKException&) {
        // The refusal that this text goes with says more than how its body ended.
    }
    text.resize(filled);
    return printable(text);
}

[[noreturn]] void refuse(const ReplyHead& head, ReplyBody& body, Wire& wire, const std::string& why) {
    const std::string* const type = head.headers.find("Content-Type");
    std::string cause = why + "status " + std::to_string(head.status) + " " + printable(head.reason, 60) +
                        ", content type " + (type ? "'" + printable(*type, 100) + "'" : "not stated");
    if (const std::string words = excerpt(head, body, wire); !words.empty())
        cause += ", it begins '" + words + "'";
    wire.fail(TavelTKError::notSoapReply, TavelTKPhase::readReply, cause);
}

/// Answers that say what else the peer wants, each with a failure of its own.
void refuseDemands(const ReplyHead& head, Wire& wire) {
    const auto stated = [&](const char* name) {
        const std::string* const value = head.headers.find(name);
        return value ? "'" + printable(*value) + "'" : std::string("nothing");
    };
    const std::string status = "status " + std::to_string(head.status) + " " + printable(head.reason, 60);
    const SessionOptions& options = wire.options();
    if (head.status >= 300 && head.status < 400 && head.headers.find("Location"))
        wire.fail(TavelTKError::redirected, TavelTKPhase::readReply,
                  status + " to " + stated("Location") + "; call that address if you trust it");
    if (head.status == 401)
        wire.fail(TavelTKError::authenticationRequired, TavelTKPhase::readReply,
                  status + ", asking for " + stated("WWW-Authenticate") + "; " +
                      (options.user.empty() ? "no credentials were given (user, password)"
                                            : "the given user was not accepted"));
    if (head.status == 407)
        wire.fail(TavelTKError::proxyAuthenticationRequired, TavelTKPhase::readReply,
                  status + ", asking for " + stated("Proxy-Authenticate") + "; " +
                      (options.proxyUser.empty() ? "no credentials were given (proxy-user, proxy-password)"
                                                 : "the given user was not accepted"));
}

} // namespace

bool ReplyType::checkXml(const std::string& contentType, Wire& wire) {
    const Poco::Net::MediaType type(contentType);
    if (!type.matches("text", "xml") && !type.matches("application", "xml") &&
        !type.matches("application", "soap+xml"))
        return false;
    if (type.hasParameter("charset")) {
        const std::string& charset = type.getParameter("charset");
        if (!sameText(charset, "utf-8") && !sameText(charset, "utf8") && !sameText(charset, "us-ascii"))
            wire.fail(TavelTKError::wrongCharset, TavelTKPhase::readReply,
                      "the charset is '" + printable(charset) + "'; only utf-8 is taken");
    }
    return true;
}

ReplyType ReplyType::check(const ReplyHead& head, ReplyBody& body, Wire& wire) {
    refuseDemands(head, wire);
    if (head.status != 200 && head.status != 500) // 500 is how a SOAP fault comes
        refuse(head, body, wire, "");
    if (const std::string* coding = head.headers.find("Content-Encoding");
        coding && !sameText(*coding, "identity"))
        refuse(head, body, wire, "content encoding '" + printable(*coding) + "' was not asked for; ");
    const std::string* const stated = head.headers.find("Content-Type");
    if (!stated)
        refuse(head, body, wire, "");

    if (sameText(*stated, "text/xml; charset=utf-8")) // as nearly all do: nothing to take apart
        return {};
    const Poco::Net::MediaType type(*stated);
    if (!type.matches("multipart", "related")) {
        if (!checkXml(*stated, wire))
            refuse(head, body, wire, "");
        return {};
    }
    if (!type.hasParameter("boundary"))
        wire.fail(TavelTKError::badMultipart, TavelTKPhase::readReply,
                  "the content type '" + printable(*stated) + "' states no boundary");
    return {true, type.getParameter("boundary"),
            type.hasParameter("start") ? type.getParameter("start") : ""};
}

} // namespace mrl::detail
