#include "PLQStreams/PLQFileInputStream.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/detail/FileFailure.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::size_t s_bufferSize = std::size_t{16} * 1024;

int openForReading(const std::string& path) {
    int descriptor = -1;
    do {
        descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    } while (descriptor < 0 && errno == EINTR);
    if (descriptor < 0)
        mrl::detail::fileFailed("opened for reading", path, errno, "PLQFileInputStream::PLQFileInputStream");
    return descriptor;
}

} // namespace

PLQFileInputStream::PLQFileInputStream(std::string path)
    : m_path(std::move(path))
    , m_file(openForReading(m_path))
    , m_buffer(hblNewChars(HBL_HERE, s_bufferSize)) {}

PLQFileInputStream::~PLQFileInputStream() = default;

std::size_t PLQFileInputStream::read(char* buffer, std::size_t count) {
    if (!m_file.isOpen())
        HBL_THROW(HBLIllegalStateError(0, ("The file \"" + m_path + "\" is closed.").c_str()),
                  "PLQFileInputStream::read");
    if (count == 0)
        return 0;
    if (m_begin == m_end) {
        if (count >= s_bufferSize) {
            const std::size_t got = get(buffer, count);
            return got == 0 ? endOfStream : got;
        }
        m_begin = 0;
        m_end = 0; // stays so when get() throws
        m_end = get(m_buffer.get(), s_bufferSize);
        if (m_end == 0)
            return endOfStream;
    }
    const std::size_t given = std::min(count, m_end - m_begin);
    std::memcpy(buffer, m_buffer.get() + m_begin, given);
    m_begin += given;
    return given;
}

void PLQFileInputStream::close() {
    m_file.close(); // nothing read can be lost by a failure
}

std::size_t PLQFileInputStream::get(char* buffer, std::size_t count) {
    while (true) {
        const ssize_t got = ::read(m_file.get(), buffer, std::min(count, mrl::detail::largestTransfer));
        if (got >= 0)
            return static_cast<std::size_t>(got);
        if (errno != EINTR)
            mrl::detail::fileFailed("read", m_path, errno, "PLQFileInputStream::read");
    }
}
