#pragma once

#include "ZORCrypto/detail/Purpose.h"

#include <cstdint>
#include <string>
#include <string_view>

// What is signed with Ed25519 and stays readable. What a signature covers begins with a line that names
// the form, so that none can pass for another.
namespace mrl::detail {

/// Appends the signature of a specification, a comment behind the document's end:
/// `<!--ZOR1 KEYID SIGNATURE-->` with the id in 16 hexadecimal digits and the signature in Base64, 88
/// characters. Covered: "mrl specification 1\n", the service id, "\n", SHA-512 of the text.
void signSpecification(const KeySet& keys, std::string_view service, std::string_view specification,
                       std::string& out);

/// @return how many bytes the signature covers, which is where it begins; 1 at least.
/// @throws ZORError for what is not signed, changed, or signed by another service.
std::size_t verifySpecification(const KeySet& keys, std::string_view service,
                                std::string_view signedSpecification);

/// A secure state: `1.KEYID.e.SERVICE.SIGNATURE`, "e" for an external one, else "i"; service id and signature
/// in Base64 for URLs. Covered: "mrl state 1\n", the text before the last dot, "\n", SHA-512 of the
/// passport's id.
std::string issueState(const KeySet& keys, std::string_view service, bool isExternal,
                       std::string_view passport);

/// @return whether the state is an external one. Any service of the installation may have issued it.
/// @throws ZORError for what was not issued here for this passport.
bool acceptState(const KeySet& keys, std::string_view state, std::string_view passport);

/// A cookie: `1.KEYID.EXPIRY.CONTENT.SIGNATURE`, the expiry in seconds since 1970, content and signature in
/// Base64 for URLs. Covered: "mrl cookie 1\n" and the text before the last dot. Signed with a key for
/// secure states.
std::string issueCookie(const KeySet& keys, std::string_view content, std::int64_t expiry);

/// @return the content.
/// @throws ZORError: eZORExpired when the cookie is genuine and `now` is its expiry or later.
std::string acceptCookie(const KeySet& keys, std::string_view cookie, std::int64_t now);

} // namespace mrl::detail
