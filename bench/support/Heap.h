#pragma once

#include <cstddef>

namespace mrl::bench {

/// What a step takes from the heap: counted in the replaced operators new and delete, which the toolkit
/// and the parser both use. One thread.
class HeapUse {
public:
    /// Counts from now on.
    HeapUse();
    ~HeapUse();
    HeapUse(const HeapUse&) = delete;
    HeapUse& operator=(const HeapUse&) = delete;

    std::size_t allocations() const;
    /// The most bytes held at one time, those from before not counted.
    std::size_t peak() const;
};

} // namespace mrl::bench
