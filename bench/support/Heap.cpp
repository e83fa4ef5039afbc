#include "support/Heap.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

bool s_counting = false;
std::size_t s_allocations = 0;
std::int64_t s_held = 0;
std::int64_t s_peak = 0;

void* take(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
    void* block = nullptr;
    if (alignment <= alignof(std::max_align_t)) {
        block = std::malloc(size == 0 ? 1 : size);
    } else if (posix_memalign(&block, alignment, size) != 0) {
        block = nullptr;
    }
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    if (s_counting) {
        ++s_allocations;
        s_held += static_cast<std::int64_t>(malloc_usable_size(block));
        s_peak = std::max(s_peak, s_held);
    }
    return block;
}

void give(void* block) noexcept {
    if (s_counting && block != nullptr) {
        s_held -= static_cast<std::int64_t>(malloc_usable_size(block));
    }
    std::free(block);
}

} // namespace

void* operator new(std::size_t size) {
    return take(size);
}
void* operator new[](std::size_t size) {
    return take(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return take(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block) noexcept {
    give(block);
}
void operator delete[](void* block) noexcept {
    give(block);
}
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
    give(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
    give(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
    give(block);
}

namespace mrl::bench {

HeapUse::HeapUse() {
    s_allocations = 0;
    s_held = s_peak = 0;
    s_counting = true;
}

HeapUse::~HeapUse() {
    s_counting = false;
}

std::size_t HeapUse::allocations() const {
    return s_allocations;
}

std::size_t HeapUse::peak() const {
    return static_cast<std::size_t>(s_peak);
}

} // namespace mrl::bench
