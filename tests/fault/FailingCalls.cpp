#include "FailingCalls.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <dlfcn.h>
#include <sys/types.h>
#include <utility>

// The system's headers are left out where they declare what is defined here: some of the names stand for
// others, depending on the size of file positions.

namespace {

bool fails() {
    long& left = mrl::test::FailingCalls::t_left;
    if (left > 0 && --left == 0) {
        left = -1;
        return true;
    }
    return false;
}

/// The function of that name that stands behind ours.
template <class Result, class... Args>
Result passOn(const char* name, Args... args) {
    return reinterpret_cast<Result (*)(Args...)>(::dlsym(RTLD_NEXT, name))(args...);
}

template <class Result, class... Args>
Result passUnlessItFails(int error, const char* name, Args... args) {
    if (fails()) {
        errno = error;
        return Result{-1};
    }
    return passOn<Result>(name, args...);
}

/// The first call writes a half and the next one fails, as at the end of a disk.
template <class... Place>
ssize_t putUnlessItFails(const char* name, int file, const void* bytes, std::size_t size, Place... place) {
    if (!fails()) {
        return passOn<ssize_t>(name, file, bytes, size, place...);
    }
    if (size > 1 && !std::exchange(mrl::test::FailingCalls::t_isTorn, true)) {
        mrl::test::FailingCalls::t_left = 1;
        return passOn<ssize_t>(name, file, bytes, size / 2, place...);
    }
    errno = ENOSPC;
    return -1;
}

} // namespace

#define REPLACED(name) __asm__(name) __attribute__((visibility("default")))

extern "C" {
int failingOpen(const char* path, int flags, int mode) REPLACED("open");
int failingMkostemp(char* path, int flags) REPLACED("mkostemp");
int failingMkdir(const char* path, mode_t mode) REPLACED("mkdir");
int failingClose(int file) REPLACED("close");
int failingRename(const char* from, const char* to) REPLACED("rename");
int failingUnlink(const char* path) REPLACED("unlink");
int failingFsync(int file) REPLACED("fsync");
int failingFlock(int file, int how) REPLACED("flock");
int failingFchmod(int file, mode_t mode) REPLACED("fchmod");
int failingTruncate(int file, std::int64_t size) REPLACED("ftruncate");
int failingStat(const char* path, void* status) REPLACED("stat");
int failingLstat(const char* path, void* status) REPLACED("lstat");
int failingFstat(int file, void* status) REPLACED("fstat");
int failingFallocate(int file, std::int64_t from, std::int64_t size) REPLACED("posix_fallocate");
std::int64_t failingSeek(int file, std::int64_t place, int from) REPLACED("lseek");
ssize_t failingRead(int file, void* bytes, std::size_t size) REPLACED("read");
ssize_t failingPread(int file, void* bytes, std::size_t size, std::int64_t at) REPLACED("pread");
ssize_t failingWrite(int file, const void* bytes, std::size_t size) REPLACED("write");
ssize_t failingPwrite(int file, const void* bytes, std::size_t size, std::int64_t at) REPLACED("pwrite");

int failingOpen(const char* path, int flags, int mode) {
    return passUnlessItFails<int>(EIO, "open", path, flags, mode);
}
int failingMkostemp(char* path, int flags) {
    return passUnlessItFails<int>(EIO, "mkostemp", path, flags);
}
int failingMkdir(const char* path, mode_t mode) {
    return passUnlessItFails<int>(ENOSPC, "mkdir", path, mode);
}
int failingClose(int file) { // it is closed all the same, as the system does
    const bool wasGood = !fails();
    const int result = passOn<int>("close", file);
    errno = wasGood ? errno : EIO;
    return wasGood ? result : -1;
}
int failingRename(const char* from, const char* to) {
    return passUnlessItFails<int>(EIO, "rename", from, to);
}
int failingUnlink(const char* path) {
    return passUnlessItFails<int>(EIO, "unlink", path);
}
int failingFsync(int file) {
    return passUnlessItFails<int>(EIO, "fsync", file);
}
int failingFlock(int file, int how) {
    return passUnlessItFails<int>(ENOLCK, "flock", file, how);
}
int failingFchmod(int file, mode_t mode) {
    return passUnlessItFails<int>(EIO, "fchmod", file, mode);
}
int failingTruncate(int file, std::int64_t size) {
    return passUnlessItFails<int>(EIO, "ftruncate", file, size);
}
int failingStat(const char* path, void* status) {
    return passUnlessItFails<int>(EIO, "stat", path, status);
}
int failingLstat(const char* path, void* status) {
    return passUnlessItFails<int>(EIO, "lstat", path, status);
}
int failingFstat(int file, void* status) {
    return passUnlessItFails<int>(EIO, "fstat", file, status);
}
int failingFallocate(int file, std::int64_t from, std::int64_t size) {
    return fails() ? ENOSPC : passOn<int>("posix_fallocate", file, from, size);
}
std::int64_t failingSeek(int file, std::int64_t place, int from) {
    return passUnlessItFails<std::int64_t>(EIO, "lseek", file, place, from);
}
ssize_t failingRead(int file, void* bytes, std::size_t size) {
    return passUnlessItFails<ssize_t>(EIO, "read", file, bytes, size);
}
ssize_t failingPread(int file, void* bytes, std::size_t size, std::int64_t at) {
    return passUnlessItFails<ssize_t>(EIO, "pread", file, bytes, size, at);
}
ssize_t failingWrite(int file, const void* bytes, std::size_t size) {
    return putUnlessItFails("write", file, bytes, size);
}
ssize_t failingPwrite(int file, const void* bytes, std::size_t size, std::int64_t at) {
    return putUnlessItFails("pwrite", file, bytes, size, at);
}

// The same under the names for large files; all files are, here.
int largeOpen(const char*, int, int) REPLACED("open64") __attribute__((alias("open")));
int largeMkostemp(char*, int) REPLACED("mkostemp64") __attribute__((alias("mkostemp")));
int largeTruncate(int, std::int64_t) REPLACED("ftruncate64") __attribute__((alias("ftruncate")));
int largeStat(const char*, void*) REPLACED("stat64") __attribute__((alias("stat")));
int largeLstat(const char*, void*) REPLACED("lstat64") __attribute__((alias("lstat")));
int largeFstat(int, void*) REPLACED("fstat64") __attribute__((alias("fstat")));
int largeFallocate(int, std::int64_t, std::int64_t) REPLACED("posix_fallocate64")
    __attribute__((alias("posix_fallocate")));
std::int64_t largeSeek(int, std::int64_t, int) REPLACED("lseek64") __attribute__((alias("lseek")));
ssize_t largePread(int, void*, std::size_t, std::int64_t) REPLACED("pread64") __attribute__((alias("pread")));
ssize_t largePwrite(int, const void*, std::size_t, std::int64_t) REPLACED("pwrite64")
    __attribute__((alias("pwrite")));
}
