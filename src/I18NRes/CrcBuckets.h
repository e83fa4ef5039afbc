#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace mrl::detail {

/// Where the rows of each leading bit pattern begin in a table sorted by CRC. CRCs spread evenly, so
/// with more buckets than rows a lookup looks at one row or two. Made when the library is built.
template <unsigned Bits>
struct CrcBuckets {
    std::array<std::uint16_t, (std::size_t{1} << Bits) + 1> starts{};

    static constexpr std::size_t bucketOf(std::uint32_t crc) { return crc >> (32 - Bits); }
};

/// @param keyOf the CRC of a row. Rows out of order, and a CRC that occurs twice, do not compile.
template <unsigned Bits, class Row, std::size_t N, class KeyOf>
consteval CrcBuckets<Bits> makeCrcBuckets(const Row (&rows)[N], KeyOf keyOf) {
    static_assert(N <= UINT16_MAX);
    for (std::size_t i = 1; i < N; ++i)
        if (keyOf(rows[i - 1]) >= keyOf(rows[i]))
            throw "the rows are not sorted by CRC, or a CRC occurs twice";
    CrcBuckets<Bits> buckets;
    std::size_t row = 0;
    for (std::size_t bucket = 0; bucket < buckets.starts.size(); ++bucket) {
        while (row < N && CrcBuckets<Bits>::bucketOf(keyOf(rows[row])) < bucket)
            ++row;
        buckets.starts[bucket] = static_cast<std::uint16_t>(row);
    }
    return buckets;
}

/// The row of `crc`, or null.
template <unsigned Bits, class Row, class KeyOf>
constexpr const Row* findByCrc(const Row* rows, const CrcBuckets<Bits>& buckets, std::uint32_t crc,
                               KeyOf keyOf) {
    const std::size_t bucket = CrcBuckets<Bits>::bucketOf(crc);
    for (std::size_t i = buckets.starts[bucket]; i < buckets.starts[bucket + 1]; ++i)
        if (keyOf(rows[i]) == crc)
            return rows + i;
    return nullptr;
}

} // namespace mrl::detail
