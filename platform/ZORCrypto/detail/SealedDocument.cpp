#include "ZORCrypto/detail/SealedDocument.h"

#include "HBLCore/HBLBase64.h"
#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Primitives.h"
#include "ZORCrypto/detail/Random.h"
#include "ZORCrypto/detail/Text.h"

#include <algorithm>
#include <atomic>

namespace mrl::detail {

namespace {

constexpr std::string_view c_magic = "ZOR";
constexpr char c_version = 1;
constexpr std::size_t c_fixedSize = 22;
constexpr std::size_t c_saltSize = 32;
constexpr std::size_t c_randomSize = 24;
constexpr std::string_view c_armourBegin = "<trustedRequest version=\"1\">";
constexpr std::string_view c_armourEnd = "</trustedRequest>";
constexpr std::string_view c_armourName = "<trustedRequest ";

void appendNumber(std::string& out, std::uint64_t value) {
    for (int shift = 56; shift >= 0; shift -= 8)
        out += static_cast<char>(value >> shift & 0xff);
}

std::int64_t readNumber(std::string_view bytes) noexcept {
    std::uint64_t value = 0;
    for (const char byte : bytes)
        value = value << 8 | static_cast<unsigned char>(byte);
    return static_cast<std::int64_t>(value);
}

/// Bytes that no other document of the installation has. Within a process the counter alone sees to
/// that, between processes, before and behind a fork or a restart, the 24 random bytes do.
std::string newSalt() {
    static const std::uint64_t start = [] {
        std::uint64_t value = 0;
        if (!fillRandom(&value, sizeof value)) // counts from anywhere: it tells nobody how many came before
            refuse(eZORSystem, "the system gives no random bytes");
        return value;
    }();
    static std::atomic<std::uint64_t> count{0};
    std::string salt(c_randomSize, '\0');
    if (!fillRandom(salt.data(), salt.size()))
        refuse(eZORSystem, "the system gives no random bytes");
    appendNumber(salt, start + count.fetch_add(1));
    return salt;
}

MessageKey messageKey(const Key& key, std::string_view salt, std::string_view bond) {
    SecretText info(13 + salt.size() + bond.size());
    info.text().append("mrl/1/message").append(salt).append(bond);
    MessageKey message;
    deriveBytes(key, info.text(), message.data(), message.size());
    return message;
}

} // namespace

void sealDocument(const KeySet& keys, Purpose purpose, std::string_view service, std::string_view bond,
                  std::int64_t now, std::string_view clear, std::string& out) {
    const MasterKey& master = keys.newest();
    std::string header(c_magic);
    header += c_version;
    header += static_cast<char>(purpose);
    header += static_cast<char>(service.size());
    header += master.id;
    appendNumber(header, static_cast<std::uint64_t>(now));
    header += service;
    const std::string salt = newSalt();
    header += salt;
    out.reserve(out.size() + header.size() + clear.size() + c_tagSize);
    out += header;
    seal(messageKey(purposeKey(master, purpose, service), salt, bond), header, clear, out);
}

SealedHeader readHeader(std::string_view document, Purpose purpose) {
    const bool known = document.starts_with(c_magic) && document.size() > c_magic.size();
    if (known && document[3] != c_version)
        refuse(eZORUnknownVersion, "the document is of version " +
                                       std::to_string(static_cast<unsigned char>(document[3])) +
                                       ", this program knows 1");
    const std::size_t serviceSize =
        document.size() > c_fixedSize ? static_cast<unsigned char>(document[5]) : 0;
    const std::size_t headerSize = c_fixedSize + serviceSize + c_saltSize;
    if (!known || document.size() < headerSize + c_tagSize)
        refuse(eZORRefused, "this is no protected document");
    if (document[4] != static_cast<char>(purpose))
        refuse(eZORRefused, "the document was protected for another purpose");
    SealedHeader header;
    header.purpose = purpose;
    header.keyId = document.substr(6, c_keyIdSize);
    header.made = readNumber(document.substr(14, 8));
    header.service = document.substr(c_fixedSize, serviceSize);
    header.salt = document.substr(c_fixedSize + serviceSize, c_saltSize);
    return header;
}

SealedHeader unsealDocument(const KeySet& keys, Purpose purpose, std::string_view bond,
                            std::string_view document, std::string& clear) {
    const SealedHeader header = readHeader(document, purpose);
    const MasterKey& master = masterKey(keys, header.keyId, "the document");
    const std::size_t headerSize = c_fixedSize + header.service.size() + c_saltSize;
    if (!unseal(messageKey(purposeKey(master, purpose, header.service), header.salt, bond),
                document.substr(0, headerSize), document.substr(headerSize), clear))
        refuse(eZORRefused, "the document is not as it was made");
    return header;
}

std::string armour(std::string_view document) {
    return std::string(c_armourBegin).append(HBLBase64Encoded(document)).append(c_armourEnd);
}

bool isArmoured(std::string_view body) noexcept {
    return body.starts_with(c_armourName);
}

std::string unarmour(std::string_view body) {
    if (!isArmoured(body))
        refuse(eZORRefused, "this is no protected request");
    if (!body.starts_with(c_armourBegin))
        refuse(eZORUnknownVersion, "the protected request is of another version than 1");
    std::string document;
    body.remove_prefix(c_armourBegin.size());
    if (!body.ends_with(c_armourEnd) ||
        !fromBase64(body.substr(0, body.size() - c_armourEnd.size()), document))
        refuse(eZORRefused, "the protected request is not whole, or no Base64");
    return document;
}

} // namespace mrl::detail
