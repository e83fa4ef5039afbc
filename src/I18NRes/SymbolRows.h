#pragma once

#include "I18NRes/CrcBuckets.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

class I18NString;

namespace mrl::detail {

/// The CRC-32 of a text of the schema vocabulary, and the place of the text in the text table.
struct SymbolRow {
    std::uint32_t crc;
    std::uint16_t index;
};

inline constexpr unsigned symbolBucketBits = 12;
using SymbolBuckets = CrcBuckets<symbolBucketBits>;

template <std::size_t N>
consteval SymbolBuckets symbolBuckets(const SymbolRow (&rows)[N]) {
    return makeCrcBuckets<symbolBucketBits>(rows, [](const SymbolRow& row) { return row.crc; });
}

/// The generated vocabulary. `cache` has a slot for each text, null until its first use.
struct SymbolTable {
    const char* const* texts; // sorted by text
    const SymbolRow* rows;    // sorted by CRC
    const SymbolBuckets* buckets;
    std::atomic<const I18NString*>* cache;
    std::size_t count;
};

/// Defined by the generated source; a constant.
extern const SymbolTable g_symbols;

} // namespace mrl::detail
