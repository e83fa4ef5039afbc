#include "FailingAllocations.h"

#include <cstdlib>
#include <new>

using mrl::test::FailingAllocations;

namespace {

void* allocate(std::size_t size, std::size_t alignment) {
    long& left = FailingAllocations::t_left;
    if (left > 0 && --left == 0) {
        left = -1; // it happened, and what follows succeeds
        throw std::bad_alloc();
    }
    const std::size_t rounded = (size + alignment - 1) / alignment * alignment;
    void* const block = alignment <= alignof(std::max_align_t)
                            ? std::malloc(size == 0 ? 1 : size)
                            : std::aligned_alloc(alignment, rounded == 0 ? alignment : rounded);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++FailingAllocations::t_alive;
    return block;
}

void release(void* block) noexcept {
    if (block != nullptr) {
        --FailingAllocations::t_alive;
        std::free(block);
    }
}

} // namespace

// Not inlined: the compiler would see new paired with free.
[[gnu::noinline]] void* operator new(std::size_t size) {
    return allocate(size, 1);
}
[[gnu::noinline]] void* operator new(std::size_t size, std::align_val_t alignment) {
    return allocate(size, static_cast<std::size_t>(alignment));
}
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size, 1);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
    release(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    release(block);
}
[[gnu::noinline]] void operator delete(void* block, std::align_val_t) noexcept {
    release(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    release(block);
}
[[gnu::noinline]] void* operator new[](std::size_t size) {
    return allocate(size, 1);
}
[[gnu::noinline]] void operator delete[](void* block) noexcept {
    release(block);
}
[[gnu::noinline]] void operator delete[](void* block, std::size_t) noexcept {
    release(block);
}
