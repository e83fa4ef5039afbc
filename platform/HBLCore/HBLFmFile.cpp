#include "HBLCore/HBLFmFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t kLargestTransfer = 0x7ffff000; // what one system call takes

} // namespace

HBLFmFile::~HBLFmFile() {
    close();
}

std::int64_t HBLFmFile::failed() const {
    m_error = errno;
    return -1;
}

int HBLFmFile::open(const char* path, createmode mode, int flags) {
    close();
    const bool readOnly = (flags & eReadOnly) != 0;
    const bool known = mode == eCreateNew || mode == eCreateAlways || mode == eOpenExisting;
    if (!path || !known || (readOnly && mode != eOpenExisting)) {
        m_error = EINVAL;
        return 0;
    }
    int how = O_CLOEXEC | (readOnly ? O_RDONLY : O_RDWR);
    if (mode != eOpenExisting || (flags & eNoFollow) != 0)
        how |= O_NOFOLLOW;
    if (mode == eCreateNew)
        how |= O_CREAT | O_EXCL;
    else if (mode == eCreateAlways)
        how |= O_CREAT;
    do {
        m_descriptor = ::open(path, how, S_IRUSR | S_IWUSR);
    } while (m_descriptor < 0 && errno == EINTR);
    if (m_descriptor < 0)
        return failed(), 0;
    struct stat status {};
    const int unknown = ::fstat(m_descriptor, &status) == 0 ? 0 : errno; // what is in it might stay
    if (unknown != 0 || S_ISDIR(status.st_mode)) {
        close();
        m_error = unknown != 0 ? unknown : EISDIR;
        return 0;
    }
    // Instead of O_TRUNC, and only where there is something: a file system may write a file that was
    // truncated to the disk when it is closed.
    if (mode == eCreateAlways && S_ISREG(status.st_mode) && status.st_size != 0 &&
        ::ftruncate(m_descriptor, 0) != 0) {
        const int error = errno;
        close();
        m_error = error;
        return 0;
    }
    return 1;
}

std::int64_t HBLFmFile::read(void* buffer, std::size_t size) {
    auto* at = static_cast<char*>(buffer);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = ::read(m_descriptor, at + done, std::min(size - done, kLargestTransfer));
        if (got > 0)
            done += static_cast<std::size_t>(got);
        else if (got == 0)
            break;
        else if (errno != EINTR)
            return failed();
    }
    return static_cast<std::int64_t>(done);
}

std::int64_t HBLFmFile::write(const void* data, std::size_t size) {
    const auto* at = static_cast<const char*>(data);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t put = ::write(m_descriptor, at + done, std::min(size - done, kLargestTransfer));
        if (put >= 0) {
            done += static_cast<std::size_t>(put);
        } else if (errno != EINTR) {
            failed();
            return done ? static_cast<std::int64_t>(done) : -1;
        }
    }
    return static_cast<std::int64_t>(done);
}

std::int64_t HBLFmFile::seek(std::int64_t position, seekorigin origin) {
    const int whence = origin == eEnd ? SEEK_END : origin == eCurrent ? SEEK_CUR : SEEK_SET;
    const off_t at = ::lseek(m_descriptor, position, whence);
    return at < 0 ? failed() : at;
}

std::int64_t HBLFmFile::getLength() const {
    struct stat status {};
    return ::fstat(m_descriptor, &status) == 0 ? status.st_size : failed();
}

int HBLFmFile::close() {
    if (m_descriptor < 0)
        return 0;
    const int result = ::close(m_descriptor);
    m_descriptor = -1; // also after a failure: the system has let go of it
    return result == 0 || errno == EINTR ? 1 : (failed(), 0);
}

int HBLFmFile::remove(const char* path) {
    return path && ::unlink(path) == 0;
}
