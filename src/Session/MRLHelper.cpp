#include "Session/MRLHelper.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NString.h"

#include <openssl/crypto.h>

namespace {

/// The deployment's endpoints come from the configuration service; without one nothing is configured.
std::string configured(const char*) {
    return {};
}

} // namespace

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

void MRLHelper::getContentManagerURI(I18NString& uri) {
    const std::string contentManagerURI = configured("contentManager");
    HBL_ASSERT_NAMED(!contentManagerURI.empty(), "Content Manager URI not found in configuration");
    uri = I18NString(contentManagerURI);
}

void MRLHelper::getDispatcherURI(I18NString& uri, int internalOnly) {
    std::string dispatcherURI = configured("internalDispatcher");
    for (const char* name : {"externalDispatcher", "sdk"}) {
        if (dispatcherURI.empty() && internalOnly == 0) {
            dispatcherURI = configured(name);
        }
    }
    HBL_ASSERT_NAMED(!dispatcherURI.empty(), "Dispatcher URI not found in configuration");
    uri = I18NString(dispatcherURI);
}
