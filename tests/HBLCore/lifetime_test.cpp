#include "support/Threads.h"

#include "HBLCore/HBLArena.h"
#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/HBLResetableResource.h"
#include "HBLCore/HBLResetableResourceRegistry.h"
#include "HBLCore/HBLResourceCounterSet.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLThread.h"
#include "HBLCore/HBLThreadGuard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <iterator>
#include <memory>
#include <random>
#include <thread>
#include <vector>

namespace {

template <class Base>
struct Counted : Base {
    explicit Counted(std::atomic<int>& ended)
        : m_ended(ended) {}
    ~Counted() override { ++m_ended; }
    std::atomic<int>& m_ended;
};

template <class Base>
class References : public testing::Test {};
using Counts = testing::Types<HBLThreadUnsafeReferenceCount, HBLReferenceCount>;
TYPED_TEST_SUITE(References, Counts);

TYPED_TEST(References, EndTheObjectWithTheLastOne) {
    std::atomic<int> ended = 0;
    auto* object = new Counted<TypeParam>(ended);
    EXPECT_EQ(object->getReferenceCount(), 0);
    EXPECT_EQ(object->addReference(), 1);
    EXPECT_EQ(object->addReference(), 2);
    EXPECT_EQ(object->removeReference(), 1);
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(object->removeReference(), 0);
    EXPECT_EQ(ended, 1);
}

TYPED_TEST(References, AreNotCopiedWithTheObject) {
    std::atomic<int> ended = 0;
    HBLSmartPointer<Counted<TypeParam>> first(new Counted<TypeParam>(ended));
    HBLSmartPointer<Counted<TypeParam>> second(new Counted<TypeParam>(*first));
    EXPECT_EQ(second->getReferenceCount(), 1);
}

TYPED_TEST(References, AreHeldBySmartPointers) {
    std::atomic<int> ended = 0;
    {
        HBLSmartPointer<Counted<TypeParam>> first(new Counted<TypeParam>(ended));
        HBLSmartPointer<TypeParam> second = first;
        EXPECT_EQ(first->getReferenceCount(), 2);
        first = first;
        HBLSmartPointer<Counted<TypeParam>> third = std::move(first);
        EXPECT_FALSE(first);
        EXPECT_EQ((*third).getReferenceCount(), 2);
        EXPECT_TRUE(third == third.get());
        third = nullptr;
        EXPECT_EQ(ended, 0);
    }
    EXPECT_EQ(ended, 1);
}

TEST(References, AreCountedAcrossThreads) {
    std::atomic<int> ended = 0;
    std::vector held(4, HBLSmartPointer(new Counted<HBLReferenceCount>(ended)));
    mrl::test::inThreads(4, [&](std::size_t number) {
        for (int n = 0; n < 10000; ++n)
            const auto copy = held[number];
        held[number] = nullptr;
    });
    EXPECT_EQ(ended, 1);
}

TEST(CriticalSection, LetsOneThreadInAndThatOneAgain) {
    static constinit HBLThreadCriticalSection section;
    const HBLThreadGuard outer(section);
    const HBLThreadGuard inner(section);
    std::uint64_t other = 0;
    std::thread([&] {
        EXPECT_FALSE(section.tryEnter());
        other = HBLThread::currentThreadId();
    }).join();
    EXPECT_NE(other, 0u);
    EXPECT_NE(other, HBLThread::currentThreadId());
}

struct Resource : HBLResetableResource {
    Resource(const char* name, std::string& log)
        : m_name(name)
        , m_log(log) {}
    void reset() override { m_log += m_name; }
    const char* m_name;
    std::string& m_log;
};

TEST(Resources, AreResetTogetherWhileTheyLive) {
    auto& registry = HBLResetableResourceRegistry::getInstance();
    std::string log;
    Resource first("1", log);
    {
        Resource second("2", log);
        EXPECT_FALSE(first.getRegistered());
        registry.registerResource(first);
        registry.registerResource(first);
        registry.registerResource(second);
        EXPECT_TRUE(first.getRegistered());
        registry.resetAll();
        EXPECT_EQ(log, "21");
    }
    registry.resetAll();
    EXPECT_EQ(log, "211");
}

TEST(ResourceCounters, CountStretchesForThemselvesAndTheirParent) {
    HBLResourceCounterSet parent("parent", nullptr);
    HBLResourceCounterSet child(nullptr, &parent);
    child.disableResourceCounter();
    EXPECT_EQ(child.getReadings().stretches, 0);
    child.enableResourceCounter();
    child.enableResourceCounter();
    EXPECT_TRUE(child.isResourceCounterActive());
    child.disableResourceCounter();
    EXPECT_FALSE(child.isResourceCounterActive());
    EXPECT_EQ(child.getReadings().stretches, 1);
    EXPECT_GE(child.getReadings().elapsedMicroseconds, 0);
    EXPECT_GE(child.getReadings().processorMicroseconds, 0);
    EXPECT_EQ(parent.getReadings().stretches, 1);
    EXPECT_EQ(parent.getReadings().elapsedMicroseconds, child.getReadings().elapsedMicroseconds);
}

/// Knows when another piece was written over it.
struct Piece : HBLArenaPiece {
    explicit Piece(std::uint64_t n)
        : first(n)
        , last(~n) {}
    virtual ~Piece() { EXPECT_EQ(first, ~last); }
    std::uint64_t first;
    std::uint64_t last;
};
using Pieces = std::vector<std::unique_ptr<Piece>>;

/// Made by a thread that is gone, so that the chunks are held by their pieces alone.
Pieces piecesOfAThread(std::uint64_t count) {
    Pieces pieces;
    std::thread([&] {
        pieces.reserve(count);
        const HBLArena::Scope together;
        for (std::uint64_t n = 0; n < count; ++n)
            pieces.push_back(std::make_unique<Piece>(n));
    }).join();
    return pieces;
}

TEST(Arena, GivesEachChunkBackWithItsLastPieceOnWhateverThreadInWhateverOrder) {
    const std::size_t before = HBLArena::liveChunks();
    Pieces pieces;
    for (int maker = 0; maker < 4; ++maker)
        std::ranges::move(piecesOfAThread(10000), std::back_inserter(pieces));
    std::ranges::shuffle(pieces, std::mt19937(1));
    mrl::test::inThreads(4, [&](std::size_t part) {
        for (std::size_t n = part; n < pieces.size(); n += 4)
            pieces[n].reset();
    });
    EXPECT_EQ(HBLArena::liveChunks(), before);
}

TEST(Arena, IsHeldByOnePieceAtMostOneChunkLong) {
    const std::size_t before = HBLArena::liveChunks();
    Pieces pieces = piecesOfAThread(10000);
    auto kept = std::move(pieces[5000]);
    pieces.clear();
    EXPECT_LE(HBLArena::liveChunks(), before + 1);
    kept.reset();
    EXPECT_EQ(HBLArena::liveChunks(), before);
}

TEST(Arena, UsesAChunkAgainWhosePiecesAreGone) {
    const std::size_t before = HBLArena::liveChunks();
    const HBLArena::Scope together;
    for (std::uint64_t n = 0; n < 100000; ++n)
        std::make_unique<Piece>(n);
    EXPECT_LE(HBLArena::liveChunks(), before + 1);
}

TEST(Arena, TakesNeitherLargePiecesNorThoseOutsideOfAScope) {
    const std::size_t before = HBLArena::liveChunks();
    std::thread([&] {
        void* const small = HBLArena::allocate(1);
        const HBLArena::Scope together;
        void* const large = HBLArena::allocate(100000);
        EXPECT_EQ(HBLArena::liveChunks(), before);
        HBLArena::release(small);
        HBLArena::release(large);
        HBLArena::release(nullptr);
    }).join();
}

} // namespace
