// Credentials: bound to a passport, or as XML of which a part may be encrypted.
#include "Session/MRLHelper.h"
#include "Session/detail/CryptoStatus.h"
#include "Toolkit/MRLXmlEncodedXML.h"

#include "HBLCore/HBLBase64.h"
#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLDowncastSize.h"
#include "HBLIDOM/HBLIDOM.h"
#include "ZORCrypto/ZOR_Crypto_Interface.h"

#include <openssl/crypto.h>

#include <cstring>
#include <memory>

using mrl::detail::unlessOutOfMemory;

namespace {

/// A text that is wiped when it goes.
struct Wiped {
    Wiped() = default;
    Wiped(const Wiped&) = delete;
    Wiped& operator=(const Wiped&) = delete;
    ~Wiped() { OPENSSL_cleanse(text.data(), text.capacity()); }

    std::string text;
};

bool parsed(const char* xml, std::size_t size, HBLIDOM_Document& document) {
    HBLIDOM_Parser parser(0);
    return parser.parse(xml, size, document) != 0 && parser.getErrorCode() == 0;
}

} // namespace

void MRLHelper::encryptCredential(const char* credential, const char* passport, unsigned int flags,
                                  HBLByteBuffer& out) {
    HBL_ASSERT(credential);
    HBL_ASSERT(passport);
    char* result = nullptr;
    ZOR_UInt32 resultSize = 0;
    const ZOR_Int32 status = unlessOutOfMemory(ZOR_EncryptCredential(
        credential, HBLDowncastSize::uint32(std::strlen(credential)), passport,
        HBLDowncastSize::uint32(std::strlen(passport)), flags, &result, &resultSize, 0));
    HBL_ASSERT_NAMED(ZOR_SUCCEEDED(status), "MRLHelper::encryptCredential");
    out.reset();
    const auto give = [](char* text) { ZOR_CryptoFree(text, 0); };
    const std::unique_ptr<char, decltype(give)> owned(result, give);
    out.appendChars(result, resultSize);
}

void MRLHelper::decryptCredential(const char* encrypted, unsigned int size, const char* passport,
                                  std::string& out) {
    HBL_ASSERT(encrypted);
    HBL_ASSERT(passport);
    char* result = nullptr;
    ZOR_UInt32 resultSize = 0;
    const ZOR_Int32 status = unlessOutOfMemory(ZOR_DecryptCredential(
        encrypted, size, passport, HBLDowncastSize::uint32(std::strlen(passport)), &result, &resultSize, 0));
    HBL_ASSERT_NAMED(ZOR_SUCCEEDED(status), "MRLHelper::decryptCredential");
    const auto give = [](char* text) { ZOR_CryptoFree(text, 0); };
    const std::unique_ptr<char, decltype(give)> owned(result, give);
    out.assign(result, resultSize);
}

int MRLHelper::decryptCredential(const char* xml, std::size_t size, HBLIDOM_Document& document,
                                 const char* service, std::string& clear) {
    if (!parsed(xml, size, document))
        return 0;
    const HBLIDOM_Element root = document.getDocumentElement();
    if (root.isNull() != 0)
        return 1;
    const HBLIDOM_Element encrypted = HBLIDOM_Helper::findChildElement(root, I18NString("encryptedValue"));
    if (encrypted.isNull() != 0)
        return 1; // it came in the clear
    if (encrypted.getFirstChild().isNull() != 0) {
        clear.clear();
        return 1;
    }
    const std::string text = HBLIDOM_Helper::getElementText(encrypted).toUtf8();
    const std::unique_ptr<char[]> decoded(hblNewChars(HBL_HERE, text.size() + 1));
    std::size_t decodedSize = 0;
    if (HBLBase64Decode(text.c_str(), decoded.get(), &decodedSize) != 0)
        return 0;
    if (decrypt(decoded.get(), decodedSize, service, clear) == 0)
        return 0;
    return parsed(clear.data(), clear.size(), document) ? 1 : 0;
}

int MRLHelper::decodeCredentialPassword(const MRLXmlEncodedXML& credential, const char* service,
                                        std::string& password) {
    const char* const xml = credential.getValue();
    password.clear();
    if (xml == nullptr)
        return 0;
    HBLIDOM_Document document;
    Wiped clear;
    if (decryptCredential(xml, std::strlen(xml), document, service, clear.text) == 0)
        return 0;
    const HBLIDOM_Element element = HBLIDOM_Helper::findFirstElement(document, I18NString("password"));
    if (element.isNull() == 0)
        password = HBLIDOM_Helper::getElementText(element).toUtf8();
    return 1;
}
