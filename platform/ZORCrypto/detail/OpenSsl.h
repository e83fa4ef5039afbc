#pragma once

#include <openssl/evp.h>

#include <memory>

namespace mrl::detail {

/// Gives back what OpenSSL made; contexts are wiped by that.
template <auto Free>
struct OpenSslFree {
    template <class T>
    void operator()(T* object) const noexcept {
        Free(object);
    }
};

using CipherContext = std::unique_ptr<EVP_CIPHER_CTX, OpenSslFree<EVP_CIPHER_CTX_free>>;
using DigestContext = std::unique_ptr<EVP_MD_CTX, OpenSslFree<EVP_MD_CTX_free>>;
using PrivateKey = std::unique_ptr<EVP_PKEY, OpenSslFree<EVP_PKEY_free>>;

} // namespace mrl::detail
