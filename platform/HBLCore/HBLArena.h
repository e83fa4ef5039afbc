#pragma once

#include "HBLCore/MRLExport.h"

#include <algorithm>
#include <cstddef>
#include <new>

/// Memory for small pieces that are made together and mostly die together: the objects and texts of a reply.
/// While a thread holds a Scope, its pieces are cut one behind the other from chunks of 32 KiB; at all other
/// times, and when they are large, they come from the global operator new. Either kind is given back by
/// release(), on any thread, in any order, at any time. A chunk goes back to the heap with its last piece, so
/// that one piece that is kept holds one chunk at most; each thread keeps the chunk it cuts from until it
/// ends.
///
/// Under the address sanitizer every piece is a block of its own, so that a use after the end is seen.
class MRL_EXPORT HBLArena {
public:
    /// The calling thread's pieces come from chunks while it lives; scopes may stand within each other. For
    /// steps that make pieces and run nobody else's code.
    class MRL_EXPORT Scope {
    public:
        Scope() noexcept;
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
    };

    /// `size` bytes, aligned for anything of an alignment up to that of a pointer; 16 outside of a scope.
    /// @throws std::bad_alloc
    static void* allocate(std::size_t size);

    /// Gives back what allocate() has given; null is passed over.
    static void release(void* piece) noexcept;

    /// The chunks of all threads that are not back in the heap.
    static std::size_t liveChunks() noexcept;
};

/// An empty base: its heirs, made by new, are pieces. Arrays of them, and what needs a larger alignment than
/// the heap gives, are not.
class HBLArenaPiece {
public:
    static void* operator new(std::size_t size) { return HBLArena::allocate(size); }
    static void operator delete(void* piece) noexcept { HBLArena::release(piece); }

    static void* operator new(std::size_t size, const std::nothrow_t& nothrow) noexcept {
        return ::operator new(std::max<std::size_t>(size, 16), nothrow);
    }
    static void* operator new(std::size_t /*size*/, void* place) noexcept { return place; }
    static void operator delete(void* /*piece*/, void* /*place*/) noexcept {}
    static void* operator new(std::size_t size, std::align_val_t alignment) {
        return ::operator new(size, alignment);
    }
    static void operator delete(void* piece, std::align_val_t alignment) noexcept {
        ::operator delete(piece, alignment);
    }
};
