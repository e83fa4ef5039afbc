#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <cstdint>

/// One open file. One thread at a time. Failure is a result, getLastError() tells the cause.
class MRL_EXPORT HBLFmFile {
public:
    enum createmode : int {
        eCreateNew = 1,    ///< create; a file that is there already is a failure
        eCreateAlways = 2, ///< create, or empty what is there
        eOpenExisting = 3, ///< open what is there
    };
    enum openflags : int {
        eReadWrite = 0,
        eReadOnly = 1, ///< only with eOpenExisting
        eNoFollow = 2, ///< with eOpenExisting: a symbolic link is refused, as it always is by the others
    };
    enum seekorigin : int { eBegin = 0, eCurrent = 1, eEnd = 2 };

    HBLFmFile() noexcept = default;
    HBLFmFile(const HBLFmFile&) = delete;
    HBLFmFile& operator=(const HBLFmFile&) = delete;
    /// Closes.
    ~HBLFmFile();

    /// Opens `path`, UTF-8, after closing what is open. A new file is for its owner alone. A directory
    /// is refused; so is a symbolic link (ELOOP) where a file is created or emptied.
    /// @return 1, or 0 on failure.
    int open(const char* path, createmode mode, int flags);
    bool isOpen() const noexcept { return m_descriptor >= 0; }

    /// Reads up to `size` bytes, fewer only at the end of the file.
    /// @return the bytes read, 0 at the end, -1 on failure.
    std::int64_t read(void* buffer, std::size_t size);

    /// Writes all bytes.
    /// @return `size`; fewer when the file takes no more (full disk), -1 when it takes none.
    std::int64_t write(const void* data, std::size_t size);

    /// @return the new position from the beginning, or -1 on failure; the position then stays.
    std::int64_t seek(std::int64_t position, seekorigin origin);

    /// @return bytes in the file, or -1 on failure.
    std::int64_t getLength() const;

    /// @return 1, or 0 when the system could not keep what was written, or nothing was open.
    int close();

    /// The errno of the last failure, 0 before the first.
    int getLastError() const noexcept { return m_error; }

    /// Removes a file. @return 1, or 0 when it could not be removed.
    static int remove(const char* path);

private:
    std::int64_t failed() const;

    int m_descriptor = -1;
    mutable int m_error = 0;
};
