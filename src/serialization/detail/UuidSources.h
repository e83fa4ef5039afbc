#pragma once

#include <cstddef>
#include <cstdint>

namespace mrl::detail {

/// Facts of this system at this moment, whose digest makes the node of this process's UUIDs. The form is
/// fixed, byte for byte.
struct UuidFacts {
    struct Memory { // bytes, but for the load in percent
        std::uint32_t length;
        std::uint32_t load;
        std::uint64_t totalPhysical;
        std::uint64_t freePhysical;
        std::uint64_t totalSwappable; // memory and swap
        std::uint64_t freeSwappable;
        std::uint64_t totalAddresses;
        std::uint64_t freeAddresses;
    };
    struct Machine {
        std::uint32_t architecture;
        std::uint32_t pageSize;
        std::uint64_t lowestAddress;
        std::uint64_t highestAddress;
        std::uint64_t activeProcessors; // a bit for each, of the first 64
        std::uint32_t processors;
        std::uint32_t processorType;
        std::uint32_t granularity;
        std::uint16_t level;
        std::uint16_t revision;
    };

    Memory memory;
    Machine machine;
    std::uint64_t fileTime;    // 100 ns since 1601
    std::uint64_t counter;     // ns since the system started
    std::uint32_t ticks;       // ms since then
    char computerName[16];     // NUL-terminated
    std::uint8_t remainder[4]; // random
};
static_assert(sizeof(UuidFacts::Memory) == 56 && sizeof(UuidFacts::Machine) == 48);
static_assert(offsetof(UuidFacts, fileTime) == 104 && sizeof(UuidFacts) == 144);

/// Where UUIDs take the time and chance from: the system, or what a test puts in its place.
class UuidSources {
public:
    virtual ~UuidSources() = default;

    /// 100 ns since 1601-01-01, UTC.
    virtual std::uint64_t fileTime();
    /// Random bytes. @return false when the system has none.
    virtual bool random(void* bytes, std::size_t size);
    /// Fills all.
    virtual void facts(UuidFacts& facts);

    static UuidSources& get();
    /// Takes the place of the system; null gives it back. Borrowed. Not while UUIDs are being made.
    static void replace(UuidSources* sources);
};

} // namespace mrl::detail
