#include "ZORCrypto/detail/SignedText.h"

#include "HBLCore/HBLBase64.h"
#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Primitives.h"
#include "ZORCrypto/detail/Text.h"

#include <charconv>
#include <vector>

namespace mrl::detail {

namespace {

constexpr std::string_view c_trailerBegin = "<!--ZOR1 ";
constexpr std::string_view c_trailerEnd = "-->";
constexpr std::size_t c_trailerSize = 9 + 16 + 1 + 88 + 3;
constexpr std::string_view c_cookieService = "HBLZORCookie";

std::string coveredBySpecification(std::string_view service, std::string_view specification) {
    return std::string("mrl specification 1\n").append(service).append("\n").append(sha512(specification));
}

std::string coveredByState(std::string_view head, std::string_view passport) {
    return std::string("mrl state 1\n").append(head).append("\n").append(sha512(passport));
}

std::string coveredByCookie(std::string_view head) {
    return std::string("mrl cookie 1\n").append(head);
}

/// A signed text of five fields with dots between, the last one the signature.
struct Fields {
    Fields(std::string_view text, const KeySet& keys, const char* what)
        : parts(split(text, '.')) {
        std::string id;
        if (parts.size() > 1 && parts[0] != "1" && parts[0].size() <= 4)
            refuse(eZORUnknownVersion, std::string(what) + " is of another version than 1");
        if (parts.size() != 5 || !fromHex(parts[1], id) || !fromBase64Url(parts[4], signature))
            refuse(eZORRefused, std::string(what) + " is not in the form of one");
        head = text.substr(0, text.size() - parts[4].size() - 1);
        master = &masterKey(keys, id, what);
    }

    std::vector<std::string_view> parts;
    std::string_view head; // what comes before the signature's dot
    std::string signature;
    const MasterKey* master = nullptr;
};

std::string headOf(const MasterKey& master, std::string_view third, std::string_view fourth) {
    return std::string("1.").append(toHex(master.id)).append(".").append(third).append(".").append(fourth);
}

} // namespace

void signSpecification(const KeySet& keys, std::string_view service, std::string_view specification,
                       std::string& out) {
    const MasterKey& master = keys.newest();
    const std::string signature = sign(purposeKey(master, Purpose::specification, service),
                                       coveredBySpecification(service, specification));
    out.reserve(out.size() + specification.size() + c_trailerSize);
    out.append(specification).append(c_trailerBegin).append(toHex(master.id)).append(" ");
    out.append(HBLBase64Encoded(signature)).append(c_trailerEnd);
}

std::size_t verifySpecification(const KeySet& keys, std::string_view service,
                                std::string_view signedSpecification) {
    std::string_view trailer;
    if (signedSpecification.size() > c_trailerSize)
        trailer = signedSpecification.substr(signedSpecification.size() - c_trailerSize);
    if (!trailer.starts_with(c_trailerBegin) || !trailer.ends_with(c_trailerEnd))
        refuse(eZORRefused, "the specification is not signed");
    std::string id;
    std::string signature;
    if (!fromHex(trailer.substr(9, 16), id) || trailer[25] != ' ' ||
        !fromBase64(trailer.substr(26, 88), signature))
        refuse(eZORRefused, "the specification's signature is damaged");
    const std::size_t covered = signedSpecification.size() - c_trailerSize;
    const MasterKey& master = masterKey(keys, id, "the specification's signature");
    if (!verify(purposeKey(master, Purpose::specification, service),
                coveredBySpecification(service, signedSpecification.substr(0, covered)), signature))
        refuse(eZORRefused, "the signature is not that of this specification and service");
    return covered;
}

std::string issueState(const KeySet& keys, std::string_view service, bool isExternal,
                       std::string_view passport) {
    const MasterKey& master = keys.newest();
    const std::string head = headOf(master, isExternal ? "e" : "i", toBase64Url(service));
    const Key key = purposeKey(master, Purpose::secureState, service);
    return head + '.' + toBase64Url(sign(key, coveredByState(head, passport)));
}

bool acceptState(const KeySet& keys, std::string_view state, std::string_view passport) {
    const Fields fields(state, keys, "the secure state");
    std::string service;
    const std::string_view flag = fields.parts[2];
    if (!fromBase64Url(fields.parts[3], service) || (flag != "e" && flag != "i"))
        refuse(eZORRefused, "the secure state is not in the form of one");
    const Key key = purposeKey(*fields.master, Purpose::secureState, service);
    if (!verify(key, coveredByState(fields.head, passport), fields.signature))
        refuse(eZORRefused, "the secure state was not issued for this passport");
    return flag == "e";
}

std::string issueCookie(const KeySet& keys, std::string_view content, std::int64_t expiry) {
    const MasterKey& master = keys.newest();
    const std::string head = headOf(master, std::to_string(expiry), toBase64Url(content));
    const Key key = purposeKey(master, Purpose::secureState, c_cookieService);
    return head + '.' + toBase64Url(sign(key, coveredByCookie(head)));
}

std::string acceptCookie(const KeySet& keys, std::string_view cookie, std::int64_t now) {
    const Fields fields(cookie, keys, "the access cookie");
    const Key key = purposeKey(*fields.master, Purpose::secureState, c_cookieService);
    if (!verify(key, coveredByCookie(fields.head), fields.signature))
        refuse(eZORRefused, "the access cookie is forged: its signature is not that of its content");
    const std::string_view expiryText = fields.parts[2];
    std::int64_t expiry = 0;
    const auto [end, error] =
        std::from_chars(expiryText.data(), expiryText.data() + expiryText.size(), expiry);
    std::string content;
    if (error != std::errc() || end != expiryText.data() + expiryText.size() ||
        !fromBase64Url(fields.parts[3], content))
        refuse(eZORRefused, "the access cookie is not in the form of one");
    if (now >= expiry)
        refuse(eZORExpired, "the access cookie expired at " + toUtcText(expiry));
    return content;
}

} // namespace mrl::detail
