#pragma once

#include "HBLCore/HBLFmFile.h"
#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace mrl::detail {
class BlockFile;
}

/// A file whose content only this object can read: HBLFmFile's contract over blocks that are encrypted and
/// authenticated with a key of the file's own, made when it is opened and wiped when it is closed. What
/// somebody changes, swaps, cuts off or puts back behind this object's back is found by the read that meets
/// it.
///
/// A block that was written to in part is kept in memory until another one is needed; room on the disk is
/// taken at once, so that a full disk shows in the write that fills it. One thread at a time. After a fork it
/// is the parent's: what needs the file fails in the child with EPERM.
class MRL_EXPORT ZORFmFile {
public:
    /// The largest position, in bytes.
    static constexpr std::int64_t c_sizeLimit = std::int64_t{1} << 40;

    ZORFmFile() noexcept;
    ZORFmFile(const ZORFmFile&) = delete;
    ZORFmFile& operator=(const ZORFmFile&) = delete;
    /// Closes.
    ~ZORFmFile();

    /// Opens `path`, UTF-8, after closing what is open. A new file is for its owner alone; a
    /// symbolic link is refused (ELOOP). Only
    /// eCreateNew and eCreateAlways, with eReadWrite: what a file held before cannot be read, since its key
    /// is gone; eOpenExisting fails with EOPNOTSUPP.
    /// @return 1, or 0 on failure.
    int open(const char* path, HBLFmFile::createmode mode, int flags);
    bool isOpen() const noexcept { return m_file != nullptr; }

    /// Reads up to `size` bytes, fewer only at the end of the file. What was never written reads as zeros.
    /// @return the bytes read, 0 at the end, -1 on failure: EBADMSG when the file is not as it was written.
    std::int64_t read(void* buffer, std::size_t size);

    /// Writes all bytes.
    /// @return `size`; fewer when the file takes no more (full disk), -1 when it takes none.
    std::int64_t write(const void* data, std::size_t size);

    /// @param position bytes; for eCurrent and eEnd a negative distance, cast to size_t, goes back.
    /// @return the new position from the beginning, or -1 on failure; the position then stays.
    std::int64_t seek(std::size_t position, HBLFmFile::seekorigin origin);

    /// @return bytes of content, or -1 when nothing is open.
    std::int64_t getLength() const;

    /// Closes and wipes the key: the content is gone for good, the file stays.
    /// @return 1, or 0 when the system could not keep what was written, or nothing was open.
    int close();

    /// The errno of the last failure, 0 before the first.
    int getLastError() const noexcept { return m_error; }

private:
    std::int64_t failed(int error) const;
    struct Part;

    int load(std::uint64_t index);
    int put(const Part& part, const unsigned char* bytes);
    int flush();

    std::unique_ptr<mrl::detail::BlockFile> m_file; // null while closed
    std::unique_ptr<unsigned char[]> m_block;       // clear text of one block
    std::uint64_t m_blockIndex = 0;                 // which one m_block holds, behind the limit for none
    bool m_changed = false;                         // m_block is newer than the file
    std::int64_t m_position = 0;
    std::int64_t m_length = 0;
    mutable int m_error = 0;
};
