#include "I18NRes/zt5omsymbols1.h"

#include "I18NRes/SymbolRows.h"
#include "I18NRes/detail/StringCache.h"

using mrl::detail::g_symbols;

namespace {

constinit HBLThreadCriticalSection cacheLock;

std::size_t indexOf(unsigned int key) {
    const mrl::detail::SymbolRow* const row = mrl::detail::findByCrc(
        g_symbols.rows, *g_symbols.buckets, key, [](const mrl::detail::SymbolRow& r) { return r.crc; });
    if (row == nullptr)
        hblAssertFailed("HBL_ASSERT_NAMED(end >= start, \"Resource lookup failed.\");", HBL_HERE, __func__);
    return row->index;
}

} // namespace

const I18NString& zt5omsymbols1::getString(unsigned int key) {
    const std::size_t id = indexOf(key);
    return mrl::detail::cachedString(g_symbols.cache[id], cacheLock, instance(), [id] {
        const char* const* const zt5omsymbols1_CharArray = g_symbols.texts;
        HBL_ASSERT(zt5omsymbols1_CharArray[id]);
        return zt5omsymbols1_CharArray[id];
    });
}

const char* zt5omsymbols1::getChar(unsigned int key) {
    return g_symbols.texts[indexOf(key)];
}

zt5omsymbols1::~zt5omsymbols1() = default;

void zt5omsymbols1::reset() {
    mrl::detail::resetCache(g_symbols.cache, g_symbols.count);
}

zt5omsymbols1& zt5omsymbols1::instance() {
    // Never destroyed: texts may still be asked for while the process ends.
    static auto* const symbols = new zt5omsymbols1;
    return *symbols;
}
