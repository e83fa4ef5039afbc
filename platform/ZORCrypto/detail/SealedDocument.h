#pragma once

#include "ZORCrypto/detail/Purpose.h"

#include <cstdint>
#include <string>
#include <string_view>

// Encrypted documents. The form, numbers highest byte first:
//
//     0       3   "ZOR"
//     3       1   version, 1
//     4       1   Purpose
//     5       1   n, the length of the service id
//     6       8   id of the master key
//     14      8   when it was made, seconds since 1970
//     22      n   service id
//     22+n    32  salt: 24 random bytes, 8 of a counter
//     54+n        cipher text
//     end-16  16  tag
//
// All before the cipher text is associated data. Each document has a key and a nonce of its own, derived from
// the purpose's key and the salt.
namespace mrl::detail {

struct SealedHeader {
    Purpose purpose{};
    std::string_view service; // these three point into the document
    std::string_view keyId;
    std::string_view salt;
    std::int64_t made = 0;
};

/// Appends the document for `clear`.
/// @param bond what the reader must know besides: a passport, or nothing.
void sealDocument(const KeySet& keys, Purpose purpose, std::string_view service, std::string_view bond,
                  std::int64_t now, std::string_view clear, std::string& out);

/// Takes the header apart; nothing in it is proven yet.
/// @throws ZORError for what is no such document, or of an unknown version, or for another purpose.
SealedHeader readHeader(std::string_view document, Purpose purpose);

/// Sets `clear` to what was sealed.
/// @throws ZORError for what readHeader() refuses, an unknown key, and whatever was changed.
SealedHeader unsealDocument(const KeySet& keys, Purpose purpose, std::string_view bond,
                            std::string_view document, std::string& clear);

/// A trusted request travels where XML is expected, and so as XML: one element with the document in Base64.
std::string armour(std::string_view document);
[[nodiscard]] bool isArmoured(std::string_view body) noexcept;
/// @throws ZORError
std::string unarmour(std::string_view body);

} // namespace mrl::detail
