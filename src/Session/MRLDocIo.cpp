#include "Session/MRLDocIo.h"

#include "Common/HBLI18NBuffer.h"
#include "Session/MRLProperty.h"
#include "Session/detail/DocumentFile.h"
#include "Session/detail/FileGate.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmFile.h"
#include "HBLCore/HBLThreadGuard.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQGZIPOutputStream.h"
#include "PLQStreams/PLQStreamError.h"
#include "ZORCrypto/ZORFmFile.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

using mrl::detail::FileStep;
using mrl::detail::passes;

namespace {

constexpr unsigned int s_defaultBufferSize = 300000;
constexpr unsigned int s_defaultPoolLimit = 30;
constexpr unsigned int s_largestPoolLimit = 65535;
constexpr std::size_t s_largestRead = 0x7fffffff;
constexpr std::size_t s_aheadSize = std::size_t{64} * 1024;

std::int64_t seekIn(HBLFmFile& file, std::int64_t position, HBLFmFile::seekorigin origin) {
    return file.seek(HBLDowncastSize::int32(position), origin);
}

std::int64_t seekIn(ZORFmFile& file, std::int64_t position, HBLFmFile::seekorigin origin) {
    return file.seek(static_cast<std::size_t>(position), origin); // negative distances are cast back there
}

[[noreturn]] void fileUnusable(const std::string& name, const char* what, const char* function) {
    HBL_THROW(
        PLQStreamError(ePLQStreamFile, "The temporary file \"" + name + "\" of a document " + what + "."),
        function);
}

} // namespace

HBLThreadCriticalSection MRLDocIo::s_lock;
int MRLDocIo::m_initCount = 0;
unsigned int MRLDocIo::m_bufferSize = 0;
unsigned int MRLDocIo::s_poolLimit = 0;

// Never destroyed: documents may end after the statics of the process.
std::vector<MRLDocIo::Buffer>& MRLDocIo::pool() {
    static auto& buffers = *new std::vector<Buffer>;
    return buffers;
}

void MRLDocIo::initialize() {
    const MRLProperty& properties = MRLProperty::getInstance(); // has a lock of its own
    const HBLThreadGuard guard(s_lock);
    if (m_initCount == 0) {
        unsigned int size = 0;
        unsigned int limit = 0;
        properties.getValue("outputBufferSize", size);
        properties.getValue("outputBufferPoolSize", limit);
        limit = limit != 0 && limit <= s_largestPoolLimit ? limit : s_defaultPoolLimit;
        pool().reserve(limit); // giving a buffer back then never allocates
        s_poolLimit = limit;
        m_bufferSize = size != 0 ? size : s_defaultBufferSize;
    }
    ++m_initCount;
}

void MRLDocIo::terminate() {
    const HBLThreadGuard guard(s_lock);
    if (m_initCount > 0 && --m_initCount == 0) {
        m_bufferSize = 0;
        s_poolLimit = 0;
        pool().clear();
    }
}

MRLDocIo::MRLDocIo() {
    const HBLThreadGuard guard(s_lock);
    HBL_ASSERT_NAMED(m_bufferSize, "MRLDocIo::MRLDocIo() - MRLDocIo not initialized.");
}

MRLDocIo::~MRLDocIo() {
    try {
        reset();
    } catch (...) { // nobody is left to be told
    }
}

MRLDocIo::Buffer MRLDocIo::getBuffer(std::size_t& capacity) {
    {
        const HBLThreadGuard guard(s_lock);
        HBL_ASSERT(m_initCount);
        capacity = m_bufferSize;
        if (!pool().empty()) {
            Buffer buffer = std::move(pool().back());
            pool().pop_back();
            return buffer;
        }
    }
    return Buffer(hblNewChars(HBL_HERE, capacity + 1));
}

void MRLDocIo::releaseBuffer(Buffer buffer, std::size_t capacity) {
    const HBLThreadGuard guard(s_lock);
    // One from before the last terminate() may have another size, and is not for the pool.
    if (capacity == m_bufferSize && pool().size() < s_poolLimit) {
        pool().push_back(std::move(buffer));
    }
}

void MRLDocIo::init(int compress) {
    reset();
    m_buffer = getBuffer(m_capacity);
    m_compress = compress;
    m_outputStream.init(this);
}

int MRLDocIo::isInit() const {
    return m_buffer != nullptr || m_zorFile != nullptr || m_hblFile != nullptr ? 1 : 0;
}

const std::string& MRLDocIo::getName() const {
    return m_name;
}

std::int64_t MRLDocIo::write(const char* data, std::size_t size) {
    if (m_compress == 0) {
        return writeImpl(data, size);
    }
    if (data == nullptr || m_incomplete) {
        return -1;
    }
    if (m_gzip == nullptr) {
        m_gzip.reset(hblNew<PLQGZIPOutputStream>(HBL_HERE));
        m_gzip->wrap(m_outputStream);
    }
    try {
        m_gzip->write(data, size);
        return 0;
    } catch (PLQStreamError&) { // the store took less
        m_incomplete = true;
        return -1;
    } catch (...) {
        m_incomplete = true;
        throw;
    }
}

std::int64_t MRLDocIo::writeImpl(const char* data, std::size_t size) {
    if (data == nullptr) {
        return -1;
    }
    if (m_buffer != nullptr) {
        if (size <= m_capacity - m_position) {
            return writeBuffer(data, size);
        }
        if (!fileMode()) {
            return -1;
        }
    }
    std::int64_t written = -1;
    if (m_hblFile != nullptr) {
        const std::uint32_t count = HBLDowncastSize::uint32(size);
        written = dropAhead() && passes(FileStep::write) ? m_hblFile->write(data, count) : -1;
    } else if (m_zorFile != nullptr) {
        written = passes(FileStep::write) ? m_zorFile->write(data, size) : -1;
    }
    return written == static_cast<std::int64_t>(size) ? written : -1;
}

std::int64_t MRLDocIo::writeBuffer(const char* data, std::size_t size) {
    if (m_position > m_size) { // the buffer may have been another document's: nothing of that shows
        std::memset(m_buffer.get() + m_size, 0, m_position - m_size);
    }
    std::memmove(m_buffer.get() + m_position, data, size);
    m_position += size;
    m_size = std::max(m_size, m_position);
    return static_cast<std::int64_t>(size);
}

/// Moves the document from memory into a new temporary file.
/// @return false when the file does not take it; the document then stays in memory.
bool MRLDocIo::fileMode() {
    removeFile(); // what an attempt that failed left
    mrl::detail::createDocumentFile(m_name);
    if (mrl::detail::wantsEncryptedFiles()) {
        m_zorFile = moveInto<ZORFmFile>();
    } else {
        m_hblFile = moveInto<HBLFmFile>();
    }
    if (m_zorFile == nullptr && m_hblFile == nullptr) {
        return false;
    }
    giveBackBuffer();
    HBL_ASSERT(m_zorFile || m_hblFile);
    return true;
}

/// The file with the bytes of the buffer in it, at the position of the document.
template <class File>
std::unique_ptr<File> MRLDocIo::moveInto() const {
    std::unique_ptr<File> file(hblNew<File>(HBL_HERE));
    if (!passes(FileStep::open) || file->open(m_name.c_str(), HBLFmFile::eCreateAlways, 0) == 0) {
        return nullptr;
    }
    if (!passes(FileStep::write) ||
        file->write(m_buffer.get(), m_size) != static_cast<std::int64_t>(m_size)) {
        return nullptr;
    }
    const bool inside = m_position < m_size;
    const std::int64_t at = !passes(FileStep::seek) ? -1
                            : inside ? seekIn(*file, static_cast<std::int64_t>(m_position), HBLFmFile::eBegin)
                                     : seekIn(*file, 0, HBLFmFile::eEnd);
    return at < 0 ? nullptr : std::move(file);
}

std::int64_t MRLDocIo::read(char* buffer, std::size_t size) {
    HBL_ASSERT_NAMED(!m_gzip, "MRLDocIo::read() not supported when compressed data is being written");
    if (buffer == nullptr) {
        return -1;
    }
    if (m_buffer != nullptr) {
        const std::size_t count = m_position < m_size ? std::min(size, m_size - m_position) : 0;
        std::memcpy(buffer, m_buffer.get() + m_position, count);
        m_position += count;
        return static_cast<std::int64_t>(count);
    }
    return readFile(buffer, size);
}

std::int64_t MRLDocIo::readFile(char* buffer, std::size_t size) {
    if (m_hblFile != nullptr) {
        std::size_t total = 0;
        while (total < size) {
            const std::size_t piece = std::min(size - total, s_largestRead);
            const std::int64_t got = readPlain(buffer + total, piece);
            m_readFailed = m_readFailed || got < 0;
            if (got <= 0) {
                break;
            }
            total += static_cast<std::size_t>(got);
        }
        return static_cast<std::int64_t>(total);
    }
    if (m_zorFile != nullptr) {
        const std::int64_t got = passes(FileStep::read) ? m_zorFile->read(buffer, size) : -1;
        m_readFailed = m_readFailed || got < 0;
        return got;
    }
    return -1;
}

std::int64_t MRLDocIo::readPlain(char* buffer, std::size_t size) {
    if (m_aheadBegin == m_aheadEnd) {
        if (!passes(FileStep::read)) {
            return -1;
        }
        if (size >= s_aheadSize) {
            return m_hblFile->read(buffer, size);
        }
        if (m_ahead == nullptr) {
            m_ahead.reset(hblNewChars(HBL_HERE, s_aheadSize));
        }
        const std::int64_t got = m_hblFile->read(m_ahead.get(), s_aheadSize);
        if (got <= 0) {
            return got;
        }
        m_aheadBegin = 0;
        m_aheadEnd = static_cast<std::size_t>(got);
    }
    const std::size_t count = std::min(size, m_aheadEnd - m_aheadBegin);
    std::memcpy(buffer, m_ahead.get() + m_aheadBegin, count);
    m_aheadBegin += count;
    return static_cast<std::int64_t>(count);
}

/// Takes the plain file back to the position of the document.
bool MRLDocIo::dropAhead() {
    const std::size_t left = m_aheadEnd - m_aheadBegin;
    if (left > 0 && m_hblFile->seek(-static_cast<std::int64_t>(left), HBLFmFile::eCurrent) < 0) {
        return false;
    }
    m_aheadBegin = m_aheadEnd = 0;
    return true;
}

std::int64_t MRLDocIo::seek(std::int64_t position, int origin) {
    HBL_ASSERT_NAMED(!m_gzip, "MRLDocIo::seek() not supported when compressed data is being written");
    if (m_buffer != nullptr) {
        return seekBuffer(position, origin);
    }
    const HBLFmFile::seekorigin from = origin == eMRLDocIo_SeekCurrent ? HBLFmFile::eCurrent
                                       : origin == eMRLDocIo_SeekEnd   ? HBLFmFile::eEnd
                                                                       : HBLFmFile::eBegin;
    if (!passes(FileStep::seek) || !dropAhead()) {
        return -1;
    }
    return m_hblFile != nullptr   ? seekIn(*m_hblFile, position, from)
           : m_zorFile != nullptr ? seekIn(*m_zorFile, position, from)
                                  : -1;
}

std::int64_t MRLDocIo::seekBuffer(std::int64_t position, int origin) {
    const std::size_t from = origin == eMRLDocIo_SeekCurrent ? m_position
                             : origin == eMRLDocIo_SeekEnd   ? m_size
                                                             : 0;
    std::int64_t to = 0;
    if (__builtin_add_overflow(static_cast<std::int64_t>(from), position, &to) || to < 0 ||
        to > static_cast<std::int64_t>(m_capacity)) {
        return -1;
    }
    m_position = static_cast<std::size_t>(to);
    return to;
}

const char* MRLDocIo::str() {
    if (m_buffer == nullptr) {
        return nullptr;
    }
    m_buffer[m_size] = '\0';
    return m_buffer.get();
}

std::size_t MRLDocIo::pcount() const {
    const std::int64_t length = m_buffer != nullptr    ? static_cast<std::int64_t>(m_size)
                                : m_zorFile != nullptr ? m_zorFile->getLength()
                                : m_hblFile != nullptr ? m_hblFile->getLength()
                                                       : 0;
    return length > 0 ? static_cast<std::size_t>(length) : 0;
}

void MRLDocIo::finishPacked() {
    if (const std::unique_ptr<PLQGZIPOutputStream> gzip = std::move(m_gzip)) {
        try {
            gzip->close(); // writes the trailer
        } catch (...) {
            m_incomplete = true;
            throw;
        }
    }
}

void MRLDocIo::reopen() {
    finishPacked();
    if (m_incomplete) {
        throwIncomplete("MRLDocIo::reopen");
    }
    m_readFailed = false;
    if (m_buffer != nullptr) {
        m_position = 0;
    } else if (m_zorFile != nullptr || m_hblFile != nullptr) {
        if (seek(0, eMRLDocIo_SeekBegin) != 0) {
            fileUnusable(m_name, "cannot be read from its beginning", "MRLDocIo::reopen");
        }
    } else if (!m_name.empty()) {
        std::unique_ptr<HBLFmFile> file(hblNew<HBLFmFile>(HBL_HERE));
        if (!mrl::detail::isPlainFile(m_name) || !passes(FileStep::open) ||
            file->open(m_name.c_str(), HBLFmFile::eOpenExisting,
                       HBLFmFile::eReadOnly | HBLFmFile::eNoFollow) == 0) {
            fileUnusable(m_name, "is gone or cannot be opened", "MRLDocIo::reopen");
        }
        m_hblFile = std::move(file);
    }
}

void MRLDocIo::close() {
    try {
        finishPacked();
    } catch (...) {
        closeFiles();
        throw;
    }
    if (!closeFiles()) {
        fileUnusable(m_name, "could not be written to its end", "MRLDocIo::close");
    }
}

/// @return false when the system could not keep what was written.
bool MRLDocIo::closeFiles() {
    bool isKept = true;
    m_ahead.reset();
    m_aheadBegin = m_aheadEnd = 0;
    if (const std::unique_ptr<ZORFmFile> file = std::move(m_zorFile)) {
        isKept = file->close() != 0 && passes(FileStep::close);
    }
    if (const std::unique_ptr<HBLFmFile> file = std::move(m_hblFile)) {
        isKept = file->close() != 0 && passes(FileStep::close);
    }
    return isKept;
}

void MRLDocIo::reset() {
    try {
        close();
    } catch (...) { // what is given up needs no end
    }
    removeFile();
    giveBackBuffer();
    m_size = 0;
    m_position = 0;
    m_compress = 0;
    m_incomplete = false;
    m_readFailed = false;
}

void MRLDocIo::removeFile() {
    if (!m_name.empty()) {
        HBLFmFile::remove(m_name.c_str()); // the host may have taken it
        m_name.clear();
    }
}

void MRLDocIo::giveBackBuffer() {
    if (m_buffer != nullptr) {
        releaseBuffer(std::move(m_buffer), m_capacity);
    }
}

void MRLDocIo::throwIncomplete(const char* function) const {
    HBL_THROW(PLQStreamError(ePLQStreamFile, "A document is incomplete: its store took no more than " +
                                                 std::to_string(pcount()) + " packed bytes" +
                                                 (m_name.empty() ? "" : " (\"" + m_name + "\")") + "."),
              function);
}

MRLDocIo& MRLDocIo::operator<<(const char* text) {
    if (text != nullptr && *text != '\0') {
        write(text, std::strlen(text));
    }
    return *this;
}

MRLDocIo& MRLDocIo::operator<<(const HBLByteBuffer& bytes) {
    if (!bytes.empty()) {
        write(bytes.str(), bytes.pcount());
    }
    return *this;
}

MRLDocIo& MRLDocIo::operator<<(const std::string& text) {
    if (!text.empty()) {
        write(text.data(), text.size());
    }
    return *this;
}

MRLDocIo& MRLDocIo::operator<<(const I18NString& text) {
    return *this << text.toUtf8();
}

MRLDocIo& MRLDocIo::operator<<(const HBLI18NBuffer& text) {
    return *this << text.getString();
}
