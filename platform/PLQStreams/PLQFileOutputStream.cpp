#include "PLQStreams/PLQFileOutputStream.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQStreamError.h"
#include "PLQStreams/detail/FileFailure.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t s_bufferSize = std::size_t{16} * 1024;

int openForWriting(const std::string& path, int append) {
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (append ? O_APPEND : O_TRUNC);
    int descriptor = -1;
    do {
        descriptor = ::open(path.c_str(), flags, 0666);
    } while (descriptor < 0 && errno == EINTR);
    if (descriptor < 0)
        mrl::detail::fileFailed("opened for writing", path, errno,
                                "PLQFileOutputStream::PLQFileOutputStream");
    return descriptor;
}

} // namespace

PLQFileOutputStream::PLQFileOutputStream(std::string path, int append)
    : m_path(std::move(path))
    , m_file(openForWriting(m_path, append))
    , m_buffer(hblNewChars(HBL_HERE, s_bufferSize)) {}

PLQFileOutputStream::~PLQFileOutputStream() {
    try {
        PLQFileOutputStream::close();
    } catch (...) { // documented: only an explicit close() reports
    }
}

void PLQFileOutputStream::write(const char* data, std::size_t length) {
    if (!m_file.isOpen())
        HBL_THROW(HBLIllegalStateError(0, ("The file \"" + m_path + "\" is closed.").c_str()),
                  "PLQFileOutputStream::write");
    if (m_error != 0)
        mrl::detail::fileFailed("written", m_path, m_error, "PLQFileOutputStream::write");
    if (length > s_bufferSize - m_held)
        drain();
    if (length >= s_bufferSize) {
        put(data, length);
    } else if (length > 0) {
        std::memcpy(m_buffer.get() + m_held, data, length);
        m_held += length;
    }
}

void PLQFileOutputStream::flush() {
    drain();
}

void PLQFileOutputStream::close() {
    if (!m_file.isOpen())
        return;
    try {
        drain();
    } catch (...) {
        m_file.close();
        throw;
    }
    if (const int error = m_file.close(); error != 0)
        mrl::detail::fileFailed("closed", m_path, error, "PLQFileOutputStream::close");
}

void PLQFileOutputStream::drain() {
    put(m_buffer.get(), std::exchange(m_held, 0));
}

void PLQFileOutputStream::put(const char* data, std::size_t length) {
    while (length > 0) {
        const ssize_t written = ::write(m_file.get(), data, std::min(length, mrl::detail::largestTransfer));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            m_error = errno;
            mrl::detail::fileFailed("written", m_path, m_error, "PLQFileOutputStream::write");
        }
        data += written;
        length -= static_cast<std::size_t>(written);
    }
}
