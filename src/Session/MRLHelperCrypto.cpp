// The gateway to the crypto library: its lifetime, one handle for each purpose, what is done with them.
#include "Common/MRLException.h"
#include "Session/MRLHelper.h"
#include "Session/MRLProperty.h"
#include "Session/detail/CryptoStatus.h"
#include "Session/detail/SpecSignature.h"
#include "Toolkit/MRLQAF.h"
#include "Toolkit/MRLTavelHeader.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLBase64.h"
#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLMessageString.h"
#include "HBLCore/HBLThreadGuard.h"
#include "ZORCrypto/ZORKeyStore.h"
#include "ZORCrypto/ZOR_Crypto_Interface.h"

#include <cstring>
#include <memory>
#include <strings.h>

using mrl::detail::unlessOutOfMemory;

namespace {

struct ZorFree {
    void operator()(char* text) const noexcept { ZOR_CryptoFree(text, 0); }
};
/// What the library gave out.
using ZorText = std::unique_ptr<char, ZorFree>;

constexpr const char* c_declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>";
constexpr std::string_view c_externalTag = "<externalFlag>";

std::string configuredKeyStore() {
    return HBLConfigurationFactory::getInstance().getProperty(I18NString("keyStore")).toUtf8();
}

/// The last failure on a handle whose lock is held.
std::string lastDetails(ZOR_Handle handle) {
    char* details = nullptr;
    unlessOutOfMemory(ZOR_CryptoGetLastErrorDetails(handle, 0, &details));
    const ZorText owned(details);
    return details != nullptr ? details : "";
}

void cannotOpen(const char* details, const char* getter, const char* step) {
    const std::string where = std::string("MRLHelper::") + getter + " - Error in " + step;
    HBL_THROW(MRLException(0) << HBLMessageString(details), where.c_str());
}

} // namespace

void* MRLHelper::s_hCSKCrypto = nullptr;
std::atomic<int> MRLHelper::b_hCSKCryptoInitialized{0};
HBLThreadCriticalSection MRLHelper::s_hCSKCryptoLock;
const char* const MRLHelper::s_xmlSetInfoDoc =
    "<setInfoDocument><action>CSKEncrypt</action><dataLocation>memory</dataLocation></setInfoDocument>";

void* MRLHelper::s_hTrustedCrypto = nullptr;
std::atomic<int> MRLHelper::b_hTrustedCryptoInitialized{0};
HBLThreadCriticalSection MRLHelper::s_hTrustedCryptoLock;
const char* const MRLHelper::s_xmlTrustedSetInfoDoc =
    "<setInfoDocument><action>VantorTrustedRequest</action><dataLocation>memory</dataLocation>"
    "</setInfoDocument>";

void* MRLHelper::s_hSpecSignCrypto = nullptr;
std::atomic<int> MRLHelper::b_hSpecSignCryptoInitialized{0};
HBLThreadCriticalSection MRLHelper::s_hSpecSignCryptoLock;
const char* const MRLHelper::s_xmlSpecSignSetInfoDoc =
    "<setInfoDocument><action>ReportSpecSign</action></setInfoDocument>";

void* MRLHelper::s_hSecureStateCrypto = nullptr;
std::atomic<int> MRLHelper::b_hSecureStateCryptoInitialized{0};
HBLThreadCriticalSection MRLHelper::s_hSecureStateCryptoLock;
const char* const MRLHelper::s_xmlSecureStateSetInfoDoc =
    "<setInfoDocument><action>SecureStateSign</action></setInfoDocument>";

MRLHelper::MRLZORHandle::~MRLZORHandle() {
    m_handle = nullptr;
    m_critSection = nullptr;
}

void MRLHelper::MRLZORHandle::load(void* handle, HBLThreadCriticalSection& lock) {
    m_handle = handle;
    m_critSection = &lock;
}

void* MRLHelper::MRLZORHandle::getHandle() const {
    HBL_ASSERT(m_handle != NULL);
    return m_handle;
}

HBLThreadCriticalSection& MRLHelper::MRLZORHandle::getCritSection() const {
    HBL_ASSERT(m_critSection);
    return *m_critSection;
}

int MRLHelper::initCrypto(const char* service) {
    HBL_ASSERT(service);
    ZORKeyStore::setLocationSource(&configuredKeyStore);
    const std::string document = c_declaration + ("<initializeDocument><serviceID>" + std::string(service)) +
                                 "</serviceID></initializeDocument>";
    char* details = nullptr;
    const ZOR_Int32 status = ZOR_CryptoInitialize(document.c_str(), 0, &details);
    ZOR_CryptoFree(details, 0);
    return ZOR_SUCCEEDED(status) ? 1 : 0;
}

void MRLHelper::terminateCrypto(const char* service) {
    HBL_ASSERT(service);
    const std::string document = c_declaration + ("<terminateDocument><serviceID>" + std::string(service)) +
                                 "</serviceID></terminateDocument>";
    char* details = nullptr;
    ZOR_CryptoTerminate(document.c_str(), 0, &details); // a failure changes nothing for who is leaving
    ZOR_CryptoFree(details, 0);
}

struct MRLHelper::CryptoPurpose {
    void*& handle;
    std::atomic<int>& opened;
    HBLThreadCriticalSection& lock;
    const char* action;
    const char* getter;
};

void MRLHelper::openHandle(const CryptoPurpose& purpose, const char* service, MRLZORHandle& handle) {
    if (purpose.opened.load(std::memory_order_acquire) == 0) {
        const HBLThreadGuard guard(purpose.lock);
        if (purpose.opened.load(std::memory_order_relaxed) == 0) {
            ZORKeyStore::setLocationSource(&configuredKeyStore);
            std::string document;
            getXMLSessionConfigDoc(service, document);
            char* details = nullptr;
            const ZOR_Int32 opened =
                unlessOutOfMemory(ZOR_PersistentInitialize(&purpose.handle, document.c_str(), 0, &details));
            if (!ZOR_SUCCEEDED(opened) && details != nullptr) {
                const ZorText owned(details);
                cannotOpen(details, purpose.getter, "ZOR_PersistentInitialize");
            }
            if (!ZOR_SUCCEEDED(unlessOutOfMemory(ZOR_SetInfo(purpose.handle, purpose.action, 0)))) {
                if (const std::string text = lastDetails(purpose.handle); !text.empty())
                    cannotOpen(text.c_str(), purpose.getter, "ZOR_SetInfo");
            }
            purpose.opened.store(1, std::memory_order_release); // also when it failed without a word
        }
    }
    handle.load(purpose.handle, purpose.lock);
}

void MRLHelper::getCryptoHandle(const char* service, MRLZORHandle& handle) {
    openHandle({s_hCSKCrypto, b_hCSKCryptoInitialized, s_hCSKCryptoLock, s_xmlSetInfoDoc, __func__}, service,
               handle);
}

void MRLHelper::getTrustedCryptoHandle(const char* service, MRLZORHandle& handle) {
    openHandle({s_hTrustedCrypto, b_hTrustedCryptoInitialized, s_hTrustedCryptoLock, s_xmlTrustedSetInfoDoc,
                __func__},
               service, handle);
}

void MRLHelper::getSpecSignCryptoHandle(const char* service, MRLZORHandle& handle) {
    openHandle({s_hSpecSignCrypto, b_hSpecSignCryptoInitialized, s_hSpecSignCryptoLock,
                s_xmlSpecSignSetInfoDoc, __func__},
               service, handle);
}

void MRLHelper::getSecureStateCryptoHandle(const char* service, MRLZORHandle& handle) {
    openHandle({s_hSecureStateCrypto, b_hSecureStateCryptoInitialized, s_hSecureStateCryptoLock,
                s_xmlSecureStateSetInfoDoc, __func__},
               service, handle);
}

namespace {

/// What the handle makes of data, under its lock.
ZorText protect(ZOR_Handle zor, HBLThreadCriticalSection& lock, const char* data, std::size_t size,
                ZOR_UInt32& resultSize, const char* function) {
    char* result = nullptr;
    ZOR_Int32 status = 0;
    std::string details;
    {
        const HBLThreadGuard guard(lock);
        status = unlessOutOfMemory(
            ZOR_ProtectData(zor, data, static_cast<ZOR_UInt32>(size), &result, &resultSize, 0));
        if (!ZOR_SUCCEEDED(status))
            details = lastDetails(zor);
    }
    if (!ZOR_SUCCEEDED(status)) // the text is interface; why it failed is told by the back trace
        hblAssertFailed("HBL_ASSERT(ZOR_SUCCEEDED(status));", HBL_HERE,
                        (std::string(function) + " - " + details).c_str());
    return ZorText(result);
}

} // namespace

void MRLHelper::encryptData(const char* data, std::size_t size, const char* service, HBLByteBuffer& out,
                            RSZORInfoMode mode) {
    if (data == nullptr || size == 0)
        return;
    MRLZORHandle handle;
    switch (mode) {
    case eRSZORGeneral: getCryptoHandle(service, handle); break;
    case eRSZORTrusted: getTrustedCryptoHandle(service, handle); break;
    case eRSZORSpecSign:
        out.reset();
        getSpecSignCryptoHandle(service, handle);
        break;
    case eRSZORSecureState: getSecureStateCryptoHandle(service, handle); break;
    default: HBL_ASSERT_NAMED(FALSE, "MRLHelper::encryptData - invalid encryption mode");
    }
    ZOR_UInt32 resultSize = 0;
    const ZorText result = protect(handle.getHandle(), handle.getCritSection(), data, size, resultSize,
                                   "MRLHelper::encryptData");
    out.appendChars(result.get(), resultSize);
}

void MRLHelper::encrypt(const char* data, std::size_t size, const char* service, HBLByteBuffer& out) {
    encryptData(data, size, service, out, eRSZORGeneral);
}

void MRLHelper::encryptTrusted(const char* data, std::size_t size, const char* service, HBLByteBuffer& out) {
    encryptData(data, size, service, out, eRSZORTrusted);
}

void MRLHelper::signSpecification(const char* data, std::size_t size, const char* service,
                                  HBLByteBuffer& out) {
    encryptData(data, size, service, out, eRSZORSpecSign);
}

void MRLHelper::encryptAndEncode(const char* data, std::size_t size, const char* service,
                                 HBLByteBuffer& out) {
    if (data == nullptr || size == 0)
        return;
    MRLZORHandle handle;
    getCryptoHandle(service, handle);
    ZOR_UInt32 resultSize = 0;
    const ZorText result = protect(handle.getHandle(), handle.getCritSection(), data, size, resultSize,
                                   "MRLHelper::encryptAndEncode");
    const std::size_t length = HBLBase64EncodedSize(resultSize, 0);
    const std::unique_ptr<char[]> text(hblNewChars(HBL_HERE, length + 1));
    HBLBase64Encode(result.get(), resultSize, text.get(), 0);
    text[length] = '\0';
    out.appendChars(text.get(), length);
}

namespace {

/// @return 1 with the clear bytes in `*out`, unless that is null; else 0.
int unprotect(ZOR_Handle zor, HBLThreadCriticalSection& lock, const char* data, std::size_t size,
              std::string* out) {
    char* result = nullptr;
    ZOR_UInt32 resultSize = 0;
    ZOR_Int32 status = 0;
    {
        const HBLThreadGuard guard(lock);
        status = unlessOutOfMemory(
            ZOR_UnprotectData(zor, data, static_cast<ZOR_UInt32>(size), &result, &resultSize, 0));
    }
    if (!ZOR_SUCCEEDED(status))
        return 0;
    const ZorText owned(result);
    if (out != nullptr)
        out->assign(result, resultSize);
    return 1;
}

} // namespace

int MRLHelper::decryptData(const char* data, std::size_t size, const char* service, std::string* out,
                           int trusted) {
    if (data == nullptr || size == 0)
        return 0;
    MRLZORHandle handle;
    trusted != 0 ? getTrustedCryptoHandle(service, handle) : getCryptoHandle(service, handle);
    return unprotect(handle.getHandle(), handle.getCritSection(), data, size, out);
}

int MRLHelper::decrypt(const char* data, std::size_t size, const char* service, std::string& out) {
    if (decryptData(data, size, service, &out, 0) != 0)
        return 1;
    out.assign(data != nullptr ? data : "", data != nullptr ? size : 0);
    return 0;
}

int MRLHelper::verifyTrusted(const char* data, std::size_t size, const char* service) {
    return decryptData(data, size, service, nullptr, 0);
}

int MRLHelper::decryptAndDecode(const char* data, std::size_t size, const char* service, std::string* out) {
    if (data == nullptr || size == 0)
        return 0;
    MRLZORHandle handle;
    getCryptoHandle(service, handle);
    const std::string text(data, size); // decoding reads up to a NUL, which the caller's text may lack
    const std::unique_ptr<char[]> decoded(hblNewChars(HBL_HERE, size));
    std::size_t decodedSize = 0;
    if (HBLBase64Decode(text.c_str(), decoded.get(), &decodedSize) != 0)
        return 0;
    return unprotect(handle.getHandle(), handle.getCritSection(), decoded.get(), decodedSize, out);
}

int MRLHelper::verifySpecSignature(const char* data, std::size_t size, const char* service,
                                   const char*& signature) {
    signature = nullptr;
    if (data == nullptr || size == 0)
        return 1;
    MRLZORHandle handle;
    getSpecSignCryptoHandle(service, handle);
    char* result = nullptr;
    ZOR_UInt32 veridataSize = 0;
    ZOR_Int32 status = 0;
    {
        const HBLThreadGuard guard(handle.getCritSection());
        status = unlessOutOfMemory(ZOR_UnprotectData(handle.getHandle(), data, static_cast<ZOR_UInt32>(size),
                                                     &result, &veridataSize, 0));
    }
    if (!ZOR_SUCCEEDED(status))
        return 0;
    signature = mrl::detail::signatureIn(data, static_cast<ZOR_UInt32>(size), veridataSize);
    return 1;
}

int MRLHelper::getSecureStateExternal(const MRLTavelHeader* pHeader, const char* service) {
    unsigned int disabled = 0;
    if (MRLProperty::getInstance().getValue("disableSpecSignCheck", disabled) != 0 && disabled != 0)
        return 0;
    HBL_ASSERT(pHeader);
    const char* const passport = getPassport(pHeader);
    const MRLQAF* const block = pHeader->getQAF();
    const char* const state = block != nullptr ? block->getSecureState() : nullptr;
    if (passport == nullptr || state == nullptr)
        return 0;
    MRLZORHandle handle;
    getSecureStateCryptoHandle(service, handle);
    const ZOR_UInt32 passportSize = HBLDowncastSize::uint32(std::strlen(passport));
    ZOR_UInt32 stateSize = HBLDowncastSize::uint32(std::strlen(state));
    // What is asked for afterwards is what this handle saw last: the lock covers both.
    const HBLThreadGuard guard(handle.getCritSection());
    char* inAndOut = const_cast<char*>(state); // read, and left as it is
    if (!ZOR_SUCCEEDED(unlessOutOfMemory(
            ZOR_UnprotectData(handle.getHandle(), passport, passportSize, &inAndOut, &stateSize, 0))))
        return 0;
    char* text = nullptr;
    const ZOR_Int32 status = unlessOutOfMemory(ZOR_GetInfo(
        handle.getHandle(), "<getInfoDocument><externalFlag/><validationFlag/></getInfoDocument>", &text, 0));
    const ZorText info(text);
    if (!ZOR_SUCCEEDED(status) || text == nullptr)
        return 0;
    const char* const flag = std::strstr(text, c_externalTag.data());
    return flag != nullptr && ::strncasecmp(flag + c_externalTag.size(), "true", 4) == 0 ? 1 : 0;
}
