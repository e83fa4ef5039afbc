#include "Session/MRLDocIo.h"

#include "Common/HBLI18NBuffer.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmFile.h"
#include "HBLCore/HBLThreadGuard.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQGZIPOutputStream.h"
#include "PLQStreams/PLQStreamError.h"
#include "ZORCrypto/ZORFmFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

[[noreturn]] void fileUnusable(const std::string& name, const char* what, const char* function) {
    HBL_THROW(
        PLQStreamError(ePLQStreamFile, "The temporary file \"" + name + "\" of a document " + what + "."),
        function);
}

} // namespace

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
    return writeFile(data, size);
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

std::int64_t MRLDocIo::seek(std::int64_t position, int origin) {
    HBL_ASSERT_NAMED(!m_gzip, "MRLDocIo::seek() not supported when compressed data is being written");
    return m_buffer != nullptr ? seekBuffer(position, origin) : seekFile(position, origin);
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
        if (!openPlain()) {
            fileUnusable(m_name, "is gone or cannot be opened", "MRLDocIo::reopen");
        }
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
