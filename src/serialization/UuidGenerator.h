#pragma once

#include "HBLCore/MRLExport.h"

#include <cstdint>

class I18NString;

namespace mrl::detail {
struct UuidAccess;
} // namespace mrl::detail

/// Makes UUIDs in the format of RFC 4122: from time and a random node (version 1), or from a name
/// (version 3). Nothing is kept between processes. The toolkit does not use it; it is for hosts.
///
/// Not locked: a host that makes UUIDs of version 1 on several threads lets one at a time in. The other
/// operations are safe from any thread.
class MRL_EXPORT UuidGenerator {
public:
    UuidGenerator() = delete;

    /// A UUID as it stands in memory: numbers in the order of the machine's bytes.
    struct _uuid_t {
        std::uint32_t time_low;
        std::uint16_t time_mid;
        std::uint16_t time_hi_and_version;
        std::uint8_t clock_seq_hi_and_reserved;
        std::uint8_t clock_seq_low;
        std::uint8_t node[6];
    };

    /// A new UUID of version 1. A burst of more than 1024 within one tick of the clock (100 ns) waits for the
    /// next by spinning.
    /// @return true. @throws HBLAssertError for null.
    static bool create(_uuid_t* uuid);
    /// The same as text, see toString().
    static bool create(I18NString& text);

    /// The UUID of version 3 of a name: the same for the same space and name, always. Name space and result
    /// are taken as they stand in memory, not in network order, so that it differs from the one that RFC 4122
    /// gives; it is the same as those of earlier releases.
    /// @param uuid receives it; null is allowed.
    /// @param length bytes of `name`. @throws HBLAssertError for a null name with a length.
    static void createFromName(_uuid_t* uuid, _uuid_t nameSpace, void* name, int length);

    /// Sets `text` to the usual 36 lower-case characters, "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx".
    /// @return `text.c_str()`.
    static const char* toString(const _uuid_t& uuid, I18NString& text);

    /// Whether `text` is 32 hexadecimal digits, of either case. The form with dashes is not.
    static bool validate(const I18NString& text);

private:
    friend struct mrl::detail::UuidAccess; // the private operations, for tests

    struct uuid_node_t {
        std::uint8_t nodeID[6];
    };
    /// What a generator that remembers itself would keep.
    struct uuid_state {
        std::uint64_t ts;
        uuid_node_t node;
        std::uint16_t cs;
    };

    static void formatV1(_uuid_t* uuid, std::uint16_t clockSequence, std::uint64_t time,
                         const uuid_node_t& node);
    static void formatV3(_uuid_t* uuid, const unsigned char* hash);
    static void getCurrentTime(std::uint64_t* time);
    static void getSystemTime(std::uint64_t* uuid_time);
    static void getIeeeNodeIdentifier(uuid_node_t* node);
    static void getRandomInfo(unsigned char (&seed)[16]);
    static int trueRandom();
    // Nothing is remembered: there is no state to read, and nothing is written or opened.
    static bool readState(uuid_state& state);
    static void writeState(const uuid_state& state);
    static bool openStateFile();

    static uuid_state m_st;
    static std::uint64_t s_lastTime;   // 100 ns since 1582; what the clock said last
    static std::uint16_t s_madeInTick; // UUIDs made since it changed
    static bool s_hasCounter;
    static uuid_node_t s_node;
    static bool s_hasNode;
    static unsigned int s_seed; // where the system has no random bytes
    static bool s_isSeeded;
};

static_assert(sizeof(UuidGenerator::_uuid_t) == 16);
