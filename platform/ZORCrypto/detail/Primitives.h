#pragma once

#include "ZORCrypto/detail/Secret.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// The few algorithms that everything here is made of. Each throws ZORError with eZORSystem when OpenSSL
// cannot work (no memory); what does not verify is a result.
namespace mrl::detail {

constexpr std::size_t c_tagSize = 16;
constexpr std::size_t c_signatureSize = 64;

/// HKDF with SHA-256 and no salt.
void deriveBytes(const Key& from, std::string_view info, unsigned char* bytes, std::size_t size);
Key deriveKey(const Key& from, std::string_view info);

/// What one message is sealed with: 32 bytes of key, 12 of nonce. Made for this message and no other.
using MessageKey = Secret<44>;

/// Appends the cipher text of `clear` and its tag of 16 bytes to `out`: AES-256-GCM.
void seal(const MessageKey& key, std::string_view associated, std::string_view clear, std::string& out);

/// Sets `clear` to what seal() was given.
/// @return false, and `clear` empty, when anything differs.
[[nodiscard]] bool unseal(const MessageKey& key, std::string_view associated, std::string_view sealed,
                          std::string& clear);

/// Ed25519; `seed` is the private key.
std::string sign(const Key& seed, std::string_view message);
[[nodiscard]] bool verify(const Key& seed, std::string_view message, std::string_view signature);

std::string sha256(std::string_view bytes);
std::string sha512(std::string_view bytes);

/// Compares in a time that depends on the lengths alone.
[[nodiscard]] bool equalInConstantTime(std::string_view a, std::string_view b) noexcept;

} // namespace mrl::detail
