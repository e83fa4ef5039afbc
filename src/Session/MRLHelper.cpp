#include "Session/MRLHelper.h"

#include "HBLCore/HBLFailure.h"

#include <openssl/crypto.h>

int MRLHelper::initCrypto(const char* service) {
    HBL_ASSERT(service);
    return OPENSSL_init_crypto(OPENSSL_INIT_LOAD_CRYPTO_STRINGS, nullptr) == 1 ? 1 : 0;
}

void MRLHelper::terminateCrypto(const char* service) {
    HBL_ASSERT(service); // the library itself goes down with the process: a host may use it too
}

void MRLHelper::encryptTrusted(const char*, std::size_t, const char*, HBLByteBuffer&) {
    HBL_ASSERT_NAMED(FALSE, "Trusted requests are not available: submit untrusted.");
}
