#pragma once

#include "ZORCrypto/detail/KeySet.h"

#include <optional>
#include <string>
#include <sys/stat.h>

namespace mrl::detail {

/// What tells one state of a file from another without reading it.
struct FileState {
    FileState() = default;
    explicit FileState(const struct stat& status) noexcept
        : device(status.st_dev)
        , node(status.st_ino)
        , size(status.st_size)
        , seconds(status.st_mtim.tv_sec)
        , nanoseconds(status.st_mtim.tv_nsec) {}
    bool operator==(const FileState&) const = default;

    dev_t device = 0;
    ino_t node = 0;
    off_t size = -1;
    time_t seconds = 0;
    long nanoseconds = 0;
};

/// The key store as a file: for its owner alone, in a directory that nobody else may write to, replaced as a
/// whole or not at all. Failures are ZORErrors that name the file and a remedy.
class KeyStoreFile {
public:
    explicit KeyStoreFile(std::string path)
        : m_path(std::move(path)) {}

    /// The state of what is at the path; none when there is nothing.
    std::optional<FileState> look() const;

    /// Reads the keys; none when there is no file.
    /// @param state receives which state of the file they are from.
    std::optional<KeySet> read(FileState* state = nullptr) const;

    /// Makes a store with one new key. Of several processes that try at once one makes it.
    /// @return false when there is one already; its rights and content are not looked at.
    bool create() const;

    /// Adds a new key, which writes from now on.
    /// @return the keys then.
    KeySet rotate() const;

private:
    [[noreturn]] void refuse(int status, const std::string& why) const;
    [[noreturn]] void systemFailed(const char* step, int error) const;
    std::string directory() const;
    void checkDirectory() const;
    void replace(const KeySet& keys) const;

    std::string m_path;
};

} // namespace mrl::detail
