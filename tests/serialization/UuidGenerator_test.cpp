#include "serialization/UuidGenerator.h"
#include "serialization/detail/UuidAccess.h"
#include "support/Failure.h"

#include "HBLCore/I18NString.h"

#include <gmock/gmock.h>

#include <cstring>
#include <ctime>
#include <set>

using mrl::detail::UuidAccess;
using mrl::detail::UuidFacts;

namespace {

constexpr std::uint64_t FROM_1582_TO_1601 = 5'748'192'000'000'000;

/// A clock that stands still until told, chance that is none, and facts that are all zero.
class FixedSources : public mrl::detail::UuidSources {
public:
    FixedSources() { UuidAccess::startOver(this); }
    ~FixedSources() override { UuidAccess::startOver(nullptr); }
    FixedSources(const FixedSources&) = delete;
    FixedSources& operator=(const FixedSources&) = delete;

    std::uint64_t fileTime() override {
        const std::uint64_t now = time - FROM_1582_TO_1601;
        if (++readings == movesAfter) {
            ++time;
        }
        return now;
    }
    bool random(void* bytes, std::size_t size) override {
        std::memcpy(bytes, &value, size);
        return hasRandom;
    }
    void facts(UuidFacts& facts) override {
        std::memset(&facts, firstFact, sizeof(facts));
        firstFact = 0xFF;
    }

    std::uint64_t time = 0x01EFABCD12345678;
    int readings = 0;
    int movesAfter = -1;
    unsigned int value = 0xBEEF7234;
    bool hasRandom = true;
    int firstFact = 0;
};

std::string made() {
    I18NString text;
    EXPECT_TRUE(UuidGenerator::create(text));
    return text.toUtf8();
}

TEST(Uuids, OfTimeHoldTimeSequenceAndNode) {
    FixedSources sources;
    // The time by fields, version 1; 7234 cut to fourteen bits behind the variant 10; the node is the MD5 of
    // 144 zeros, 45971d4e3a47..., with its top bit set.
    EXPECT_EQ(made(), "12345678-abcd-11ef-b234-c5971d4e3a47");
    sources.value = 0x0001;
    sources.time = 0xFFFF000000000000; // the top four bits give way to the version
    EXPECT_EQ(made(), "00000000-0000-1fff-8001-c5971d4e3a47") << "the node stays, other facts or not";
    expectAssert([] { UuidGenerator::create(static_cast<UuidGenerator::_uuid_t*>(nullptr)); },
                 "HBL_ASSERT(uuid);");
    expectAssert([] { UuidAccess::getSystemTime(nullptr); }, "HBL_ASSERT(uuid_time);");
    expectAssert([] { UuidAccess::getIeeeNodeIdentifier(); }, "HBL_ASSERT(node);");
}

TEST(Uuids, OfOneTickAreCountedUntilTheClockMoves) {
    FixedSources sources;
    const std::uint64_t start = sources.time;
    for (std::uint64_t i = 0; i <= 1024; ++i) {
        ASSERT_EQ(UuidAccess::getCurrentTime(), start + i);
    }
    EXPECT_EQ(sources.readings, 1025);
    sources.movesAfter = 1025 + 50; // it spins until then
    EXPECT_EQ(UuidAccess::getCurrentTime(), start + 1);
    EXPECT_EQ(sources.readings, 1025 + 51);
    EXPECT_EQ(UuidAccess::getCurrentTime(), start + 2);
    sources.time -= 100; // a clock that was put back
    EXPECT_EQ(UuidAccess::getCurrentTime(), start - 99);
}

TEST(Uuids, HaveASequenceWithoutRandomBytesToo) {
    FixedSources sources;
    EXPECT_EQ(UuidAccess::trueRandom(), 0x3EEF7234);
    sources.hasRandom = false;
    const int first = UuidAccess::trueRandom();
    EXPECT_NE(first, UuidAccess::trueRandom());
    UuidAccess::startOver(&sources);
    EXPECT_EQ(UuidAccess::trueRandom(), first) << "the seed is made of the time";
    unsigned int seed = 0xF344F6FF; // 01efabcd12345678 >> 10 is 7beaf3448d15; f3448d15 XOR 7bea
    EXPECT_EQ(first, ::rand_r(&seed));
}

TEST(Uuids, OfNamesAreThoseOfEarlierReleases) {
    // 6ba7b810-9dad-11d1-80b4-00c04fd430c8, the space of domain names. MD5 of its bytes in memory (10b8a76b
    // ad9d d111 80b4 ...) and the name, read back in the same order; by another program.
    const UuidGenerator::_uuid_t domains{0x6ba7b810, 0x9dad, 0x11d1,
                                         0x80,       0xb4,   {0x00, 0xc0, 0x4f, 0xd4, 0x30, 0xc8}};
    const struct {
        UuidGenerator::_uuid_t space;
        std::string name;
        const char* expected;
    } rows[] = {
        {domains, "www.widgets.com", "e902893a-9d22-3c7e-a7b8-d6e313b71d9f"},
        {domains, "", "50de9076-30b6-34bf-99bc-59b8dc1c8cb1"},
        {{}, std::string("a\0b", 3), "8e565681-e64a-34cf-a93e-18e2c6cbbf78"},
    };
    for (auto row : rows) {
        UuidGenerator::_uuid_t uuid{};
        I18NString text;
        UuidGenerator::createFromName(&uuid, row.space, row.name.data(), static_cast<int>(row.name.size()));
        EXPECT_STREQ(UuidGenerator::toString(uuid, text), row.expected);
    }
    UuidGenerator::_uuid_t uuid{};
    UuidGenerator::createFromName(&uuid, domains, nullptr, -1);
    EXPECT_EQ(uuid.time_low, 0x50de9076U);
    expectAssert([&] { UuidGenerator::createFromName(&uuid, domains, nullptr, 1); },
                 "HBL_ASSERT(name || length <= 0);");
}

TEST(Uuids, AreTextOfThirtySixAndValidWithoutDashes) {
    I18NString text;
    EXPECT_STREQ(UuidGenerator::toString({}, text), "00000000-0000-0000-0000-000000000000");
    UuidGenerator::toString({0xA, 0xB, 0xC, 0xD, 0xE, {1, 2, 3, 4, 5, 0xFF}}, text);
    EXPECT_EQ(text, "0000000a-000b-000c-0d0e-0102030405ff");
    const std::pair<const char*, bool> rows[] = {
        {"0000000a-000b-000c-0d0e-0102030405ff", false},   {"0000000a000b000c0d0e0102030405ff", true},
        {"0123456789ABCDEFabcdef0000000000", true},        {"0123456789ABCDEFabcdef000000000", false},
        {"0123456789ABCDEFabcdef00000000000", false},      {"0123456789ABCDEGabcdef0000000000", false},
        {"0123456789ABCDEFabcdef00000000\xc3\xa9", false}, {"", false},
    };
    for (const auto& [candidate, expected] : rows) {
        EXPECT_EQ(UuidGenerator::validate(candidate), expected) << candidate;
    }
}

TEST(Uuids, OfTheSystemAreNewEachTimeWithOneNode) {
    UuidAccess::startOver(nullptr);
    std::set<std::string> texts;
    std::set<std::string> nodes;
    for (int i = 0; i < 5000; ++i) {
        const std::string text = made();
        ASSERT_THAT(text, testing::MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-1[0-9a-f]{3}-[89ab][0-9a-f]{3}-"
                                                "[89a-f][0-9a-f]{11}"));
        texts.insert(text);
        nodes.insert(text.substr(24));
    }
    EXPECT_EQ(texts.size(), 5000U);
    EXPECT_EQ(nodes.size(), 1U);
    std::uint64_t time = 0;
    UuidAccess::getSystemTime(&time);
    const std::uint64_t seconds = (time - 0x01B21DD213814000) / 10'000'000; // since 1970
    EXPECT_NEAR(static_cast<double>(seconds), static_cast<double>(std::time(nullptr)), 60);
}

} // namespace
