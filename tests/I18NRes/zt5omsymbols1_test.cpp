#include "I18NRes/SymbolRows.h"
#include "I18NRes/zt5omsymbols1.h"
#include "support/Failure.h"
#include "support/Threads.h"

#include "HBLCore/HBLResetableResourceRegistry.h"
#include "HBLCore/HBLUtCrc32.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using mrl::detail::g_symbols;

TEST(Symbols, AreFoundEachByTheCrcOfItsText) {
    for (std::size_t i = 0; i < g_symbols.count; ++i)
        ASSERT_EQ(zt5omsymbols1::getChar(HBLUtCrc32::crc32(g_symbols.texts[i], 0u)), g_symbols.texts[i]);
}

TEST(Symbols, RefuseAKeyWithoutAText) {
    const char* const text = "HBL_ASSERT_NAMED(end >= start, \"Resource lookup failed.\");";
    for (const unsigned key : {0u, HBLUtCrc32::constant("name") + 1u, 0xFFFFFFFFu}) {
        expectAssert([&] { zt5omsymbols1::getChar(key); }, text);
        expectAssert([&] { zt5omsymbols1::getString(key); }, text);
    }
}

TEST(Symbols, AreMadeOnceAndAnewAfterAReset) {
    constexpr unsigned key = HBLUtCrc32::constant("name");
    const I18NString* first = &zt5omsymbols1::getString(key);
    EXPECT_EQ(first->toUtf8(), "name");
    EXPECT_EQ(first, &zt5omsymbols1::getString(key));
    HBLResetableResourceRegistry::getInstance().resetAll();
    EXPECT_EQ(zt5omsymbols1::getString(key).toUtf8(), "name");
}

TEST(Symbols, AreTheSameObjectsForThreadsThatMeetAtTheFirstUse) {
    HBLResetableResourceRegistry::getInstance().resetAll();
    std::vector<const I18NString*> seen(4 * g_symbols.count);
    std::atomic<int> waiting = 4;
    mrl::test::inThreads(4, [&](std::size_t thread) {
        for (--waiting; waiting > 0;) // all begin together
            std::this_thread::yield();
        for (std::size_t i = 0; i < g_symbols.count; ++i)
            seen[thread * g_symbols.count + i] = &zt5omsymbols1::getString(g_symbols.rows[i].crc);
    });
    for (std::size_t i = 0; i < seen.size(); ++i)
        ASSERT_EQ(seen[i], seen[i % g_symbols.count]);
}

} // namespace
