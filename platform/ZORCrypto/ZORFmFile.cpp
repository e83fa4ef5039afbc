#include "ZORCrypto/ZORFmFile.h"

#include "ZORCrypto/detail/BlockFile.h"

#include <openssl/crypto.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using mrl::detail::BlockFile;

namespace {

constexpr std::size_t c_block = BlockFile::c_blockSize;
constexpr std::uint64_t c_none = ~std::uint64_t{0};

/// Drops what the file holds. One that is empty already is left alone, and not opened with O_TRUNC: a file
/// system may write a file that was truncated to the disk when it is closed.
int emptied(int descriptor) noexcept {
    struct stat status {};
    const bool done =
        ::fstat(descriptor, &status) == 0 && (status.st_size == 0 || ::ftruncate(descriptor, 0) == 0);
    return done ? 0 : errno;
}

} // namespace

/// Where in which block a position lies, and how much of `size` bytes from there is in that block.
struct ZORFmFile::Part {
    Part(std::int64_t position, std::size_t size)
        : index(static_cast<std::uint64_t>(position) / c_block)
        , offset(static_cast<std::size_t>(static_cast<std::uint64_t>(position) % c_block))
        , length(std::min(size, c_block - offset)) {}

    std::uint64_t index;
    std::size_t offset;
    std::size_t length;
};

ZORFmFile::ZORFmFile() noexcept = default;

ZORFmFile::~ZORFmFile() {
    close();
}

std::int64_t ZORFmFile::failed(int error) const {
    m_error = error;
    return -1;
}

int ZORFmFile::open(const char* path, HBLFmFile::createmode mode, int flags) {
    close();
    const bool known = mode == HBLFmFile::eCreateNew || mode == HBLFmFile::eCreateAlways;
    if (path == nullptr || !known || flags != HBLFmFile::eReadWrite) {
        failed(mode == HBLFmFile::eOpenExisting ? EOPNOTSUPP : EINVAL);
        return 0;
    }
    const int how = O_CLOEXEC | O_NOFOLLOW | O_RDWR | O_CREAT | (mode == HBLFmFile::eCreateNew ? O_EXCL : 0);
    int descriptor = -1;
    do {
        descriptor = ::open(path, how, S_IRUSR | S_IWUSR);
    } while (descriptor < 0 && errno == EINTR);
    if (descriptor < 0) {
        failed(errno);
        return 0;
    }
    if (const int error = emptied(descriptor)) {
        BlockFile(descriptor).close();
        failed(error);
        return 0;
    }
    try {
        auto file = std::make_unique<BlockFile>(descriptor);
        descriptor = -1;
        auto block = std::make_unique<unsigned char[]>(c_block);
        if (const int error = file->start()) {
            failed(error);
            return 0;
        }
        m_file = std::move(file);
        m_block = std::move(block);
    } catch (const std::bad_alloc&) {
        if (descriptor >= 0)
            BlockFile(descriptor).close();
        failed(ENOMEM);
        return 0;
    }
    m_blockIndex = c_none;
    m_changed = false;
    m_position = 0;
    m_length = 0;
    return 1;
}

/// Brings block `index` into m_block.
int ZORFmFile::load(std::uint64_t index) {
    if (index == m_blockIndex)
        return 0;
    if (const int error = flush())
        return error;
    m_blockIndex = c_none;
    if (const int error = m_file->read(index, m_block.get()))
        return error;
    m_blockIndex = index;
    return 0;
}

int ZORFmFile::flush() {
    if (!m_changed)
        return 0;
    const int error = m_file->write(m_blockIndex, m_block.get());
    m_changed = error != 0; // kept in memory, to be tried again
    return error;
}

int ZORFmFile::put(const Part& part, const unsigned char* bytes) {
    if (part.length == c_block && part.index != m_blockIndex)
        return m_file->write(part.index, bytes);    // whole blocks need no second look
    if (!m_changed || part.index != m_blockIndex) { // a changed block has its room already
        if (const int error = m_file->reserve(part.index))
            return error;
    }
    if (const int error = load(part.index))
        return error;
    std::memcpy(m_block.get() + part.offset, bytes, part.length);
    m_changed = true;
    return 0;
}

std::int64_t ZORFmFile::read(void* buffer, std::size_t size) {
    if (!m_file)
        return failed(EBADF);
    auto* to = static_cast<unsigned char*>(buffer);
    const auto rest = static_cast<std::size_t>(std::max<std::int64_t>(m_length - m_position, 0));
    const std::size_t wanted = std::min(size, rest);
    for (std::size_t done = 0; done < wanted;) {
        const Part part(m_position, wanted - done);
        if (const int error = load(part.index))
            return failed(error);
        std::memcpy(to + done, m_block.get() + part.offset, part.length);
        m_position += static_cast<std::int64_t>(part.length);
        done += part.length;
    }
    return static_cast<std::int64_t>(wanted);
}

std::int64_t ZORFmFile::write(const void* data, std::size_t size) {
    if (!m_file)
        return failed(EBADF);
    const auto* from = static_cast<const unsigned char*>(data);
    const auto room = static_cast<std::size_t>(c_sizeLimit - m_position);
    std::size_t done = 0;
    int error = 0;
    try {
        while (done < size && error == 0) {
            if (done == room) {
                error = EFBIG;
                break;
            }
            const Part part(m_position, std::min(size, room) - done);
            error = put(part, from + done);
            if (error == 0) {
                m_position += static_cast<std::int64_t>(part.length);
                m_length = std::max(m_length, m_position);
                done += part.length;
            }
        }
    } catch (const std::bad_alloc&) {
        error = ENOMEM;
    }
    if (error != 0)
        failed(error);
    return done != 0 || size == 0 ? static_cast<std::int64_t>(done) : -1;
}

std::int64_t ZORFmFile::seek(std::size_t position, HBLFmFile::seekorigin origin) {
    if (!m_file)
        return failed(EBADF);
    std::int64_t to = 0;
    const std::int64_t from = origin == HBLFmFile::eEnd       ? m_length
                              : origin == HBLFmFile::eCurrent ? m_position
                                                              : 0;
    if (__builtin_add_overflow(from, static_cast<std::int64_t>(position), &to) || to < 0 || to > c_sizeLimit)
        return failed(EINVAL);
    m_position = to;
    return to;
}

std::int64_t ZORFmFile::getLength() const {
    return m_file ? m_length : failed(EBADF);
}

int ZORFmFile::close() {
    if (!m_file)
        return 0;
    int error = flush();
    if (const int closing = m_file->close(); error == 0)
        error = closing;
    m_file.reset();
    OPENSSL_cleanse(m_block.get(), c_block);
    m_block.reset();
    m_changed = false;
    if (error != 0)
        failed(error);
    return error == 0 ? 1 : 0;
}
