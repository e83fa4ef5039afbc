#include "ZORCrypto/detail/Primitives.h"

#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/OpenSsl.h"

#include <openssl/core_names.h>
#include <openssl/kdf.h>
#include <openssl/params.h>

#include <algorithm>
#include <array>

namespace mrl::detail {

namespace {

constexpr std::size_t c_keySize = 32;
constexpr std::size_t c_pieceSize = 1U << 30; // OpenSSL counts in int

using Kdf = std::unique_ptr<EVP_KDF, OpenSslFree<EVP_KDF_free>>;
using KdfContext = std::unique_ptr<EVP_KDF_CTX, OpenSslFree<EVP_KDF_CTX_free>>;

void must(bool worked, const char* what) {
    if (!worked)
        HBL_THROW(ZORError(eZORSystem, std::string("OpenSSL cannot compute ") + what), what);
}

const unsigned char* bytesOf(std::string_view text) noexcept {
    return reinterpret_cast<const unsigned char*>(text.data());
}

unsigned char* bytesOf(std::string& text) noexcept {
    return reinterpret_cast<unsigned char*>(text.data());
}

/// Runs `update(piece)` over `text` in pieces that OpenSSL can count.
template <class Update>
bool inPieces(std::string_view text, Update&& update) {
    for (std::size_t at = 0; at < text.size(); at += c_pieceSize) {
        if (!update(at, text.substr(at, c_pieceSize)))
            return false;
    }
    return true;
}

std::string digest(const EVP_MD* method, std::string_view bytes, const char* what) {
    std::string result(static_cast<std::size_t>(EVP_MD_get_size(method)), '\0');
    must(EVP_Digest(bytes.data(), bytes.size(), bytesOf(result), nullptr, method, nullptr) == 1, what);
    return result;
}

PrivateKey signingKey(const Key& seed) {
    PrivateKey key(EVP_PKEY_new_raw_private_key(EVP_PKEY_ED25519, nullptr, seed.data(), seed.size()));
    must(key != nullptr, "Ed25519");
    return key;
}

} // namespace

void deriveBytes(const Key& from, std::string_view info, unsigned char* bytes, std::size_t size) {
    static const Kdf kdf(EVP_KDF_fetch(nullptr, OSSL_KDF_NAME_HKDF, nullptr));
    const KdfContext context(kdf ? EVP_KDF_CTX_new(kdf.get()) : nullptr);
    must(context != nullptr, "HKDF");
    char method[] = "SHA256";
    // OpenSSL takes parameters by pointers to what is not const, and only reads them.
    const std::array<OSSL_PARAM, 4> parameters = {
        OSSL_PARAM_construct_utf8_string(OSSL_KDF_PARAM_DIGEST, method, 0),
        OSSL_PARAM_construct_octet_string(OSSL_KDF_PARAM_KEY, const_cast<unsigned char*>(from.data()),
                                          from.size()),
        OSSL_PARAM_construct_octet_string(OSSL_KDF_PARAM_INFO, const_cast<char*>(info.data()), info.size()),
        OSSL_PARAM_construct_end(),
    };
    must(EVP_KDF_derive(context.get(), bytes, size, parameters.data()) == 1, "HKDF");
}

Key deriveKey(const Key& from, std::string_view info) {
    Key key;
    deriveBytes(from, info, key.data(), key.size());
    return key;
}

void seal(const MessageKey& key, std::string_view associated, std::string_view clear, std::string& out) {
    const std::size_t start = out.size();
    out.resize(start + clear.size() + c_tagSize);
    unsigned char* const to = bytesOf(out) + start;
    const CipherContext context(EVP_CIPHER_CTX_new());
    int size = 0;
    must(context && EVP_EncryptInit_ex2(context.get(), EVP_aes_256_gcm(), key.data(), key.data() + c_keySize,
                                        nullptr) == 1,
         "AES-256-GCM");
    bool worked = EVP_EncryptUpdate(context.get(), nullptr, &size, bytesOf(associated),
                                    static_cast<int>(associated.size())) == 1;
    worked = worked && inPieces(clear, [&](std::size_t at, std::string_view piece) {
                 return EVP_EncryptUpdate(context.get(), to + at, &size, bytesOf(piece),
                                          static_cast<int>(piece.size())) == 1;
             });
    worked = worked && EVP_EncryptFinal_ex(context.get(), to + clear.size(), &size) == 1 &&
             EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_AEAD_GET_TAG, c_tagSize, to + clear.size()) == 1;
    must(worked, "AES-256-GCM");
}

bool unseal(const MessageKey& key, std::string_view associated, std::string_view sealed, std::string& clear) {
    clear.clear();
    if (sealed.size() < c_tagSize)
        return false;
    const std::string_view cipher = sealed.substr(0, sealed.size() - c_tagSize);
    std::array<unsigned char, c_tagSize> tag{};
    std::copy_n(bytesOf(sealed) + cipher.size(), c_tagSize, tag.begin());
    const CipherContext context(EVP_CIPHER_CTX_new());
    int size = 0;
    must(context && EVP_DecryptInit_ex2(context.get(), EVP_aes_256_gcm(), key.data(), key.data() + c_keySize,
                                        nullptr) == 1,
         "AES-256-GCM");
    clear.resize(cipher.size());
    unsigned char* const to = bytesOf(clear);
    bool good = EVP_DecryptUpdate(context.get(), nullptr, &size, bytesOf(associated),
                                  static_cast<int>(associated.size())) == 1;
    good = good && inPieces(cipher, [&](std::size_t at, std::string_view piece) {
               return EVP_DecryptUpdate(context.get(), to + at, &size, bytesOf(piece),
                                        static_cast<int>(piece.size())) == 1;
           });
    good = good && EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_AEAD_SET_TAG, c_tagSize, tag.data()) == 1 &&
           EVP_DecryptFinal_ex(context.get(), to + clear.size(), &size) == 1;
    if (!good) { // nothing unproven leaves
        OPENSSL_cleanse(clear.data(), clear.size());
        clear.clear();
    }
    return good;
}

std::string sign(const Key& seed, std::string_view message) {
    const PrivateKey key = signingKey(seed);
    const DigestContext context(EVP_MD_CTX_new());
    std::string signature(c_signatureSize, '\0');
    std::size_t size = signature.size();
    must(context && EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, key.get()) == 1 &&
             EVP_DigestSign(context.get(), bytesOf(signature), &size, bytesOf(message), message.size()) == 1,
         "Ed25519");
    return signature;
}

bool verify(const Key& seed, std::string_view message, std::string_view signature) {
    if (signature.size() != c_signatureSize)
        return false;
    const PrivateKey key = signingKey(seed);
    const DigestContext context(EVP_MD_CTX_new());
    must(context && EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key.get()) == 1,
         "Ed25519");
    return EVP_DigestVerify(context.get(), bytesOf(signature), signature.size(), bytesOf(message),
                            message.size()) == 1;
}

std::string sha256(std::string_view bytes) {
    return digest(EVP_sha256(), bytes, "SHA-256");
}

std::string sha512(std::string_view bytes) {
    return digest(EVP_sha512(), bytes, "SHA-512");
}

bool equalInConstantTime(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() && CRYPTO_memcmp(a.data(), b.data(), a.size()) == 0;
}

} // namespace mrl::detail
