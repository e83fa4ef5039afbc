#pragma once

#include "ZORCrypto/detail/OpenSsl.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace mrl::detail {

/// Blocks of one size in a file, each sealed with AES-256-GCM under a key that lives as long as this object.
///
/// The nonce of a block is the number of this write among all writes of the object, so none is used twice
/// under the key; the number that a block was last written with, and its tag, are remembered here and nowhere
/// else. A block that an attacker changed, moved to another place or brought back from earlier fails to open,
/// because number, tag or place are not those it was sealed with.
///
/// Results are 0 or an errno; EPERM in a child process, whose writes would use the numbers of its parent's.
/// One thread at a time.
class BlockFile {
public:
    static constexpr std::size_t c_blockSize = 65536; // of clear text
    static constexpr std::size_t c_tagSize = 16;

    /// @param descriptor an open file, owned from here on.
    explicit BlockFile(int descriptor) noexcept
        : m_descriptor(descriptor) {}
    BlockFile(const BlockFile&) = delete;
    BlockFile& operator=(const BlockFile&) = delete;
    ~BlockFile() { close(); }

    /// Makes the key. Comes before everything else.
    int start();

    /// Fills `block` with the clear text of block `index`, zeros when it was never written.
    /// @return EBADMSG when what is there is not what was written; `block` is then zeroed.
    int read(std::uint64_t index, unsigned char* block);

    /// Takes room on the disk for block `index`, so that writing it does not fail for lack of room.
    int reserve(std::uint64_t index);

    /// Seals and writes `block`. A block that was never written still is not after a failure.
    int write(std::uint64_t index, const unsigned char* block);

    int close();

private:
    /// What a block was last sealed with.
    struct Seal {
        std::uint64_t number = 0; // of the write that it came with; 0 for never
        std::array<unsigned char, c_tagSize> tag{};
    };

    int seal(std::uint64_t index, Seal& with, const unsigned char* block);
    int unseal(std::uint64_t index, Seal with, unsigned char* block);

    int m_descriptor;
    unsigned m_forks = 0;         // forks before start()
    std::uint64_t m_writes = 0;   // the number of the last write
    std::vector<Seal> m_seals;    // of each block; never in the file
    std::uint64_t m_roomFrom = 0; // blocks that have room, though nothing was written yet:
    std::uint64_t m_roomTo = 0;   // from the first to before the second
    CipherContext m_sealing;
    CipherContext m_opening;
    std::vector<unsigned char> m_stored; // one block as it is in the file
};

} // namespace mrl::detail
