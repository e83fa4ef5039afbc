#include "serialization/UuidGenerator.h"

#include "serialization/detail/UuidSources.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NString.h"

#include <openssl/evp.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <string>

using mrl::detail::UuidFacts;
using mrl::detail::UuidSources;

UuidGenerator::uuid_state UuidGenerator::m_st{};
std::uint64_t UuidGenerator::s_lastTime = 0;
std::uint16_t UuidGenerator::s_madeInTick = 0;
bool UuidGenerator::s_hasCounter = false;
UuidGenerator::uuid_node_t UuidGenerator::s_node{};
bool UuidGenerator::s_hasNode = false;
unsigned int UuidGenerator::s_seed = 0;
bool UuidGenerator::s_isSeeded = false;

namespace {

constexpr std::uint64_t FROM_1582_TO_1601 = 5'748'192'000'000'000; // 100 ns
constexpr std::uint16_t UUIDS_IN_TICK = 1024;

struct DigestDeleter {
    void operator()(EVP_MD* method) const { EVP_MD_free(method); }
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

/// The MD5 of pieces of memory: an identifier, nothing that protects anything.
void md5(std::initializer_list<std::span<const std::byte>> pieces, unsigned char (&hash)[16]) {
    const std::unique_ptr<EVP_MD, DigestDeleter> method(EVP_MD_fetch(nullptr, "MD5", "-fips"));
    const std::unique_ptr<EVP_MD_CTX, DigestDeleter> context(EVP_MD_CTX_new());
    bool isDone = method && context && EVP_DigestInit_ex(context.get(), method.get(), nullptr) == 1;
    for (const auto& piece : pieces) {
        isDone = isDone && EVP_DigestUpdate(context.get(), piece.data(), piece.size()) == 1;
    }
    isDone = isDone && EVP_DigestFinal_ex(context.get(), hash, nullptr) == 1;
    HBL_ASSERT_NAMED(isDone, "The crypto library has no MD5, which UUIDs need.");
}

} // namespace

bool UuidGenerator::create(_uuid_t* uuid) {
    std::uint64_t time = 0;
    getCurrentTime(&time);
    uuid_node_t node{};
    getIeeeNodeIdentifier(&node);
    formatV1(uuid, static_cast<std::uint16_t>(trueRandom()), time, node);
    return true;
}

bool UuidGenerator::create(I18NString& text) {
    _uuid_t uuid{};
    create(&uuid);
    toString(uuid, text);
    return true;
}

void UuidGenerator::createFromName(_uuid_t* uuid, _uuid_t nameSpace, void* name, int length) {
    HBL_ASSERT(name || length <= 0);
    const std::size_t size = length > 0 ? static_cast<std::size_t>(length) : 0;
    unsigned char hash[16];
    md5({std::as_bytes(std::span(&nameSpace, 1)), {static_cast<const std::byte*>(name), size}}, hash);
    formatV3(uuid, hash);
}

const char* UuidGenerator::toString(const _uuid_t& uuid, I18NString& text) {
    std::array<char, 40> characters{};
    std::snprintf(characters.data(), characters.size(),
                  "%8.8x-%4.4x-%4.4x-%2.2x%2.2x-%2.2x%2.2x%2.2x%2.2x%2.2x%2.2x", uuid.time_low, uuid.time_mid,
                  uuid.time_hi_and_version, uuid.clock_seq_hi_and_reserved, uuid.clock_seq_low, uuid.node[0],
                  uuid.node[1], uuid.node[2], uuid.node[3], uuid.node[4], uuid.node[5]);
    text = I18NString(characters.data());
    return text.c_str();
}

bool UuidGenerator::validate(const I18NString& text) {
    const std::string digits = text.toUtf8();
    return digits.size() == 32 && digits.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
}

void UuidGenerator::formatV1(_uuid_t* uuid, std::uint16_t clockSequence, std::uint64_t time,
                             const uuid_node_t& node) {
    HBL_ASSERT(uuid);
    uuid->time_low = static_cast<std::uint32_t>(time);
    uuid->time_mid = static_cast<std::uint16_t>(time >> 32U);
    uuid->time_hi_and_version = static_cast<std::uint16_t>((time >> 48U & 0x0FFFU) | 0x1000U);
    uuid->clock_seq_low = static_cast<std::uint8_t>(clockSequence);
    uuid->clock_seq_hi_and_reserved = static_cast<std::uint8_t>((clockSequence >> 8U & 0x3FU) | 0x80U);
    std::memcpy(uuid->node, node.nodeID, sizeof(uuid->node));
}

void UuidGenerator::formatV3(_uuid_t* uuid, const unsigned char* hash) {
    if (uuid == nullptr || hash == nullptr) {
        return;
    }
    std::memcpy(uuid, hash, sizeof(*uuid));
    uuid->time_hi_and_version = static_cast<std::uint16_t>((uuid->time_hi_and_version & 0x0FFFU) | 0x3000U);
    uuid->clock_seq_hi_and_reserved =
        static_cast<std::uint8_t>((uuid->clock_seq_hi_and_reserved & 0x3FU) | 0x80U);
}

void UuidGenerator::getCurrentTime(std::uint64_t* time) {
    if (!s_hasCounter) {
        s_madeInTick = UUIDS_IN_TICK;
        s_hasCounter = true;
    }
    for (;;) {
        std::uint64_t now = 0;
        getSystemTime(&now);
        if (now != s_lastTime) {
            s_madeInTick = 0;
            s_lastTime = now;
            break;
        }
        if (s_madeInTick < UUIDS_IN_TICK) {
            ++s_madeInTick;
            break;
        }
    }
    *time = s_lastTime + s_madeInTick;
}

void UuidGenerator::getSystemTime(std::uint64_t* uuid_time) {
    HBL_ASSERT(uuid_time);
    *uuid_time = UuidSources::get().fileTime() + FROM_1582_TO_1601;
}

void UuidGenerator::getIeeeNodeIdentifier(uuid_node_t* node) {
    HBL_ASSERT(node);
    if (!s_hasNode) {
        unsigned char seed[16];
        getRandomInfo(seed);
        seed[0] |= 0x80U; // the top bit, not the one for multicast
        std::memcpy(s_node.nodeID, seed, sizeof(s_node.nodeID));
        s_hasNode = true;
    }
    *node = s_node;
}

void UuidGenerator::getRandomInfo(unsigned char (&seed)[16]) {
    UuidFacts facts{};
    UuidSources::get().facts(facts);
    md5({std::as_bytes(std::span(&facts, 1))}, seed);
}

int UuidGenerator::trueRandom() {
    unsigned int value = 0;
    if (UuidSources::get().random(&value, sizeof(value))) {
        return static_cast<int>(value & RAND_MAX);
    }
    if (!s_isSeeded) { // a generator of its own: the C library's belongs to the host
        std::uint64_t time = 0;
        getSystemTime(&time);
        time >>= 10U;
        s_seed = static_cast<unsigned int>(time ^ time >> 32U);
        s_isSeeded = true;
    }
    return ::rand_r(&s_seed);
}

bool UuidGenerator::readState(uuid_state&) {
    return false;
}

void UuidGenerator::writeState(const uuid_state&) {}

bool UuidGenerator::openStateFile() {
    return false;
}
