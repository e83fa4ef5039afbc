#pragma once

#include "serialization/UuidGenerator.h"
#include "serialization/detail/UuidSources.h"

namespace mrl::detail {

/// What tests need of the generator: it starts over with sources of theirs.
struct UuidAccess {
    /// @param sources null for the system.
    static void startOver(UuidSources* sources) {
        UuidSources::replace(sources);
        UuidGenerator::s_lastTime = 0;
        UuidGenerator::s_madeInTick = 0;
        UuidGenerator::s_hasCounter = false;
        UuidGenerator::s_hasNode = false;
        UuidGenerator::s_isSeeded = false;
    }
    static void getSystemTime(std::uint64_t* time) { UuidGenerator::getSystemTime(time); }
    static std::uint64_t getCurrentTime() {
        std::uint64_t time = 0;
        UuidGenerator::getCurrentTime(&time);
        return time;
    }
    static int trueRandom() { return UuidGenerator::trueRandom(); }
    static void getIeeeNodeIdentifier() { UuidGenerator::getIeeeNodeIdentifier(nullptr); }
    static unsigned int seed() { return UuidGenerator::s_seed; }
};

} // namespace mrl::detail
