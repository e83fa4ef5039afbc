#include "logipf2/detail/RotatingFile.h"

#include "HBLCore/HBLFmDir.h"
#include "logipf2/detail/Descriptor.h"
#include "logipf2/detail/LogClock.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace mrl::detail {

namespace {

constexpr mode_t OWNER_ONLY = 0600;
constexpr std::int64_t RETRY_MILLISECONDS = 1000;

int openAppending(const std::string& path) {
    // Not waiting for the reader of a pipe: a log must never stop a call.
    constexpr int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    return ::open(path.c_str(), flags, OWNER_ONLY);
}

} // namespace

RotatingFile::RotatingFile(std::string path, std::int64_t maxSize, int maxFiles)
    : m_path(std::move(path))
    , m_maxSize(maxSize)
    , m_maxFiles(maxFiles) {}

RotatingFile::~RotatingFile() {
    close();
}

void RotatingFile::close() noexcept {
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
        m_descriptor = -1;
    }
}

int RotatingFile::reopen() {
    close();
    const std::int64_t now = logClock().monotonicMilliseconds();
    if (m_openFailure != 0 && now < m_retryAt) {
        return m_openFailure;
    }
    m_descriptor = openAppending(m_path);
    if (m_descriptor < 0 && errno == ENOENT) {
        std::string directory;
        HBLFmDir::splitPath(m_path, &directory, nullptr);
        HBLFmDir::createRecursiveDir(directory.c_str());
        m_descriptor = openAppending(m_path);
    }
    m_openFailure = 0;
    if (m_descriptor < 0 || ::fstat(m_descriptor, &m_opened) != 0) {
        m_openFailure = errno;
        m_retryAt = now + RETRY_MILLISECONDS;
        close();
    }
    return m_openFailure;
}

bool RotatingFile::isInPlace(const struct stat& there) const {
    return m_descriptor >= 0 && there.st_ino == m_opened.st_ino && there.st_dev == m_opened.st_dev;
}

LineWriterI::Result RotatingFile::write(spdlog::level::level_enum /*severity*/, std::string_view line) {
    struct stat there = {};
    if (::stat(m_path.c_str(), &there) != 0 || !isInPlace(there)) {
        if (const int error = reopen(); error != 0) {
            return {false, "cannot open it: " + failureText(error)};
        }
        there = m_opened;
    }
    Result result{true, {}};
    const bool isFull = m_maxSize > 0 && S_ISREG(there.st_mode) && there.st_size > 0 &&
                        there.st_size + static_cast<std::int64_t>(line.size()) > m_maxSize;
    if (isFull) {
        if (const int error = rotate(); error != 0) {
            result.trouble = "cannot start a new file, the old one grows on: " + failureText(error);
        }
        if (m_descriptor < 0) {
            return {false, "cannot open a new one: " + failureText(m_openFailure)};
        }
    }
    const bool mayBePipe = !S_ISREG(m_opened.st_mode);
    std::size_t written = 0;
    int error = m_torn ? writeWhole(m_descriptor, "\n", mayBePipe, written) : 0;
    if (error == 0) {
        m_torn = false;
        error = writeWhole(m_descriptor, line, mayBePipe, written);
        m_torn = error != 0 && written > 0;
    }
    if (error != 0) {
        return {false, "cannot write to it: " + failureText(error)};
    }
    return result;
}

int RotatingFile::rotate() {
    // One process at a time; who finds the lock taken writes on and comes back with its next line.
    if (::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        return errno == EWOULDBLOCK ? 0 : errno;
    }
    struct stat there = {};
    int error = 0;
    if (::stat(m_path.c_str(), &there) == 0 && isInPlace(there)) { // else another process was faster
        error = moveAway();
    }
    if (error != 0) {
        ::flock(m_descriptor, LOCK_UN);
        return error;
    }
    return reopen(); // closing the old file ends the lock
}

int RotatingFile::moveAway() const {
    if (m_maxFiles == 0) {
        return ::unlink(m_path.c_str()) == 0 ? 0 : errno;
    }
    for (int number = m_maxFiles - 1; number >= 0; --number) {
        const std::string from = number == 0 ? m_path : m_path + "." + std::to_string(number);
        const std::string to = m_path + "." + std::to_string(number + 1);
        if (std::rename(from.c_str(), to.c_str()) != 0 && errno != ENOENT) {
            return errno;
        }
    }
    return 0;
}

} // namespace mrl::detail
