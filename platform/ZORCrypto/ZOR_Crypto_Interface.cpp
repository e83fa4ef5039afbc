#include "ZORCrypto/ZOR_Crypto_Interface.h"

#include "HBLCore/HBLThreadGuard.h"
#include "ZORCrypto/ZORKeyStore.h"
#include "ZORCrypto/detail/Clock.h"
#include "ZORCrypto/detail/CryptoHandle.h"
#include "ZORCrypto/detail/KeyRing.h"
#include "ZORCrypto/detail/KeyStoreFile.h"
#include "ZORCrypto/detail/SealedDocument.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using mrl::detail::ControlDocument;
using mrl::detail::CryptoHandle;
using mrl::detail::Purpose;
using mrl::detail::refuse;
using mrl::detail::SecretText;

namespace {

// In front of what is given out stands its size, so that all of it can be wiped.
constexpr std::size_t c_prefix = alignof(std::max_align_t);

HBLThreadCriticalSection s_servicesLock;

/// How often each service was started.
std::map<std::string, int, std::less<>>& services() {
    static std::map<std::string, int, std::less<>> started;
    return started;
}

HBLThreadCriticalSection s_handlesLock;

/// Makes a handle and keeps it. What keeps them is never destroyed: threads may use theirs up to the end.
CryptoHandle* newHandle(const std::string& service) {
    static auto& handles = *new std::vector<std::unique_ptr<CryptoHandle>>;
    auto handle = std::make_unique<CryptoHandle>(service);
    const HBLThreadGuard guard(s_handlesLock);
    return handles.emplace_back(std::move(handle)).get();
}

/// A copy of `bytes` with a NUL behind, for ZOR_CryptoFree; null without memory.
char* giveOut(std::string_view bytes) noexcept {
    auto* const block = static_cast<char*>(std::malloc(c_prefix + bytes.size() + 1));
    if (block == nullptr)
        return nullptr;
    const std::size_t size = bytes.size() + 1;
    std::memcpy(block, &size, sizeof size);
    std::memcpy(block + c_prefix, bytes.data(), bytes.size());
    block[c_prefix + bytes.size()] = '\0';
    return block + c_prefix;
}

void giveOut(std::string_view bytes, char** result, ZOR_UInt32* resultSize) {
    if (bytes.size() > UINT32_MAX)
        refuse(eZORBadArgument, "the result is larger than 4 GiB");
    *result = giveOut(bytes);
    if (*result == nullptr)
        throw std::bad_alloc();
    if (resultSize != nullptr)
        *resultSize = static_cast<ZOR_UInt32>(bytes.size());
}

std::string_view viewOf(const char* bytes, ZOR_UInt32 size, const char* what) {
    if (bytes == nullptr || size == 0)
        refuse(eZORBadArgument, std::string(what) + " is missing or empty");
    return {bytes, size};
}

template <class T>
void need(T* pointer, const char* what) {
    if (pointer == nullptr)
        refuse(eZORBadArgument, std::string(what) + " is a null pointer");
}

/// Runs `step` and tells how it ended; `tell(text)` takes the reason of a failure.
template <class Step, class Tell>
ZOR_Int32 ended(Step&& step, Tell&& tell) noexcept {
    try {
        try {
            step();
            return eZORSuccess;
        } catch (const ZORError& e) {
            tell(e.getText());
            return e.getStatus();
        } catch (const HBLOutOfMemoryError&) {
            throw std::bad_alloc();
        } catch (HBLThrowable& e) { // such as a configuration that names the store and cannot be read
            tell(e.getMessage());
            return eZORSystem;
        }
    } catch (const std::bad_alloc&) { // perhaps none to tell of another failure
        return eZOROutOfMemory;
    } catch (...) { // noexcept
        return eZORSystem;
    }
}

template <class Step>
ZOR_Int32 withDetails(char** details, Step&& step) noexcept {
    if (details != nullptr)
        *details = nullptr;
    return ended(step, [details](const char* text) {
        if (details != nullptr && (*details = giveOut(text)) == nullptr)
            throw std::bad_alloc();
    });
}

template <class Step>
ZOR_Int32 withHandle(ZOR_Handle opaque, Step&& step) noexcept {
    auto* const handle = static_cast<CryptoHandle*>(opaque);
    if (handle == nullptr)
        return eZORBadArgument;
    handle->lastError.clear();
    return ended([&] { step(*handle); }, [handle](const char* text) { handle->lastError = text; });
}

} // namespace

ZOR_Int32 ZOR_CryptoInitialize(const char* document, ZOR_UInt32, char** details) {
    return withDetails(details, [&] {
        const std::string service = ControlDocument(document, "initializeDocument").get("serviceID");
        mrl::detail::checkService(service);
        mrl::detail::KeyStoreFile(ZORKeyStore::location()).read();
        const HBLThreadGuard guard(s_servicesLock);
        ++services()[service];
    });
}

ZOR_Int32 ZOR_CryptoTerminate(const char* document, ZOR_UInt32, char** details) {
    return withDetails(details, [&] {
        const std::string service = ControlDocument(document, "terminateDocument").get("serviceID");
        const HBLThreadGuard guard(s_servicesLock);
        const auto started = services().find(service);
        if (started == services().end())
            refuse(eZORBadArgument, "the service \"" + service + "\" was not started");
        if (--started->second == 0)
            services().erase(started);
        if (services().empty())
            mrl::detail::forgetKeys();
    });
}

ZOR_Int32 ZOR_PersistentInitialize(ZOR_Handle* handle, const char* document, ZOR_UInt32, char** details) {
    return withDetails(details, [&] {
        need(handle, "the handle");
        const ControlDocument config(document, "sessionConfigDocument");
        *handle = newHandle(config.get("serviceID"));
    });
}

ZOR_Int32 ZOR_SetInfo(ZOR_Handle handle, const char* document, ZOR_UInt32) {
    return withHandle(handle,
                      [&](CryptoHandle& to) { to.setInfo(ControlDocument(document, "setInfoDocument")); });
}

ZOR_Int32 ZOR_GetInfo(ZOR_Handle handle, const char* document, char** result, ZOR_UInt32) {
    return withHandle(handle, [&](CryptoHandle& of) {
        need(result, "the result");
        giveOut(of.getInfo(ControlDocument(document, "getInfoDocument")), result, nullptr);
    });
}

ZOR_Int32 ZOR_ProtectData(ZOR_Handle handle, const char* data, ZOR_UInt32 size, char** result,
                          ZOR_UInt32* resultSize, ZOR_UInt32) {
    return withHandle(handle, [&](CryptoHandle& with) {
        need(result, "the result");
        need(resultSize, "the result's size");
        giveOut(with.protect(viewOf(data, size, "the data")), result, resultSize);
    });
}

ZOR_Int32 ZOR_UnprotectData(ZOR_Handle handle, const char* data, ZOR_UInt32 size, char** result,
                            ZOR_UInt32* resultSize, ZOR_UInt32) {
    return withHandle(handle, [&](CryptoHandle& with) {
        need(result, "the result");
        need(resultSize, "the result's size");
        const std::string_view given = viewOf(data, size, "the data");
        switch (with.purpose()) {
        case Purpose::specification:
            *resultSize = static_cast<ZOR_UInt32>(with.verifySpecification(given));
            return;
        case Purpose::secureState:
            with.acceptState(given, viewOf(*result, *resultSize, "the secure state"));
            return;
        default: break;
        }
        SecretText clear(std::string{});
        with.unprotect(given, clear.text());
        giveOut(clear.text(), result, resultSize);
    });
}

ZOR_Int32 ZOR_EncryptCredential(const char* credential, ZOR_UInt32 length, const char* passport,
                                ZOR_UInt32 passportLength, ZOR_UInt32 flags, char** result,
                                ZOR_UInt32* resultSize, ZOR_UInt32) {
    return withDetails(nullptr, [&] {
        need(result, "the result");
        need(resultSize, "the result's size");
        need(credential, "the credential");
        if (flags != 0)
            refuse(eZORBadArgument, "there are no flags but 0");
        std::string sealed;
        mrl::detail::sealDocument(*mrl::detail::keysForWriting(), Purpose::credential, {},
                                  viewOf(passport, passportLength, "the passport"),
                                  mrl::detail::secondsSince1970(), {credential, length}, sealed);
        giveOut(sealed, result, resultSize);
    });
}

ZOR_Int32 ZOR_DecryptCredential(const char* encrypted, ZOR_UInt32 size, const char* passport,
                                ZOR_UInt32 passportLength, char** result, ZOR_UInt32* resultSize,
                                ZOR_UInt32) {
    return withDetails(nullptr, [&] {
        need(result, "the result");
        need(resultSize, "the result's size");
        SecretText clear(std::string{});
        mrl::detail::unsealDocument(*mrl::detail::keysForReading(), Purpose::credential,
                                    viewOf(passport, passportLength, "the passport"),
                                    viewOf(encrypted, size, "the encrypted credential"), clear.text());
        giveOut(clear.text(), result, resultSize);
    });
}

ZOR_Int32 ZOR_CryptoGetLastErrorDetails(ZOR_Handle handle, ZOR_UInt32, char** details) {
    const auto* const of = static_cast<CryptoHandle*>(handle);
    if (of == nullptr || details == nullptr)
        return eZORBadArgument;
    *details = of->lastError.empty() ? nullptr : giveOut(of->lastError);
    return of->lastError.empty() || *details != nullptr ? eZORSuccess : eZOROutOfMemory;
}

void ZOR_CryptoFree(void* pointer, ZOR_UInt32) {
    if (pointer == nullptr)
        return;
    char* const block = static_cast<char*>(pointer) - c_prefix;
    std::size_t size = 0;
    std::memcpy(&size, block, sizeof size);
    OPENSSL_cleanse(block + c_prefix, size);
    std::free(block);
}
