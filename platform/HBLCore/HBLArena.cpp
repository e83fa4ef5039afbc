#include "HBLCore/HBLArena.h"

#include <atomic>
#include <cstdint>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool everyPieceAlone = true;
#elif defined(__has_feature)
constexpr bool everyPieceAlone = __has_feature(address_sanitizer);
#else
constexpr bool everyPieceAlone = false;
#endif

// A piece lies at an odd multiple of 8 in its chunk, where the heap has no block: the address tells whose it
// is. Chunks begin at multiples of their room, so that it also tells the chunk.
constexpr std::size_t pieceUnit = 16;
constexpr std::uintptr_t pieceMark = 8;
constexpr std::size_t chunkRoom = std::size_t{32} * 1024;
constexpr std::size_t chunkSize = chunkRoom - pieceUnit; // the heap's own word behind it: the next fits close
constexpr std::size_t largestPiece = chunkRoom / 8;

/// The pieces alive, and in the chunk that a thread cuts from as many more as it could ever cut.
struct Chunk {
    std::atomic<std::size_t> live;
};
static_assert(sizeof(Chunk) == pieceMark, "the first piece follows");
constexpr std::size_t uncut = chunkRoom;

std::atomic<std::size_t> s_liveChunks = 0;

Chunk* newChunk() {
    void* const place = ::operator new (chunkSize, std::align_val_t{chunkRoom});
    s_liveChunks.fetch_add(1, std::memory_order_relaxed);
    return new (place) Chunk{uncut};
}

void drop(Chunk* chunk, std::size_t pieces) noexcept {
    if (chunk->live.fetch_sub(pieces, std::memory_order_acq_rel) == pieces) {
        s_liveChunks.fetch_sub(1, std::memory_order_relaxed);
        ::operator delete (chunk, std::align_val_t{chunkRoom});
    }
}

/// Where a thread stands.
struct Cutter {
    std::size_t scopes;
    Chunk* chunk; // null before the first piece, and after the thread's end
    char* next;
    std::size_t left; // bytes behind `next`
    std::size_t cut;  // pieces of `chunk`
    bool isClosed;    // the thread ends

    void begin(Chunk* with) noexcept {
        chunk = with;
        next = reinterpret_cast<char*>(with) + sizeof(Chunk);
        left = chunkSize - sizeof(Chunk);
        cut = 0;
    }

    void give() noexcept {
        if (chunk != nullptr) {
            drop(chunk, uncut - cut);
        }
        chunk = nullptr;
        left = 0;
    }

    /// Makes room for a piece of any size.
    void renew();
};

thread_local constinit Cutter t_cutter{};

/// Gives the thread's last chunk up when the thread ends. Pieces made after that are the heap's.
struct AtThreadEnd {
    bool isSet = false;
    ~AtThreadEnd() {
        t_cutter.give();
        t_cutter.isClosed = true;
    }
};
thread_local AtThreadEnd t_atThreadEnd;

void Cutter::renew() {
    if (chunk != nullptr && chunk->live.load(std::memory_order_acquire) == uncut - cut) {
        chunk->live.store(uncut, std::memory_order_relaxed); // all its pieces are gone
        return begin(chunk);
    }
    t_atThreadEnd.isSet = true; // exists from now on
    Chunk* const fresh = newChunk();
    give();
    begin(fresh);
}

} // namespace

HBLArena::Scope::Scope() noexcept {
    ++t_cutter.scopes;
}

HBLArena::Scope::~Scope() {
    --t_cutter.scopes;
}

void* HBLArena::allocate(std::size_t size) {
    if (!everyPieceAlone && size <= largestPiece) {
        Cutter& cutter = t_cutter;
        if (cutter.scopes != 0 && !cutter.isClosed) {
            const std::size_t taken =
                (std::max<std::size_t>(size, 1) + pieceUnit - 1) / pieceUnit * pieceUnit;
            if (taken > cutter.left) {
                cutter.renew();
            }
            void* const piece = cutter.next;
            cutter.next += taken;
            cutter.left -= taken;
            ++cutter.cut;
            return piece;
        }
    }
    return ::operator new(std::max(size, pieceUnit)); // a smaller block might lie anywhere
}

void HBLArena::release(void* piece) noexcept {
    const auto address = reinterpret_cast<std::uintptr_t>(piece);
    if ((address & pieceMark) == 0) {
        return ::operator delete(piece);
    }
    drop(reinterpret_cast<Chunk*>(static_cast<char*>(piece) - address % chunkRoom), 1);
}

std::size_t HBLArena::liveChunks() noexcept {
    return s_liveChunks.load(std::memory_order_relaxed);
}
