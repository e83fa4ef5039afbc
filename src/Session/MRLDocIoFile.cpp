// A document in its temporary file, plain or encrypted.
#include "Session/MRLDocIo.h"
#include "Session/detail/DocumentFile.h"
#include "Session/detail/FileGate.h"

#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmFile.h"
#include "ZORCrypto/ZORFmFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

using mrl::detail::FileStep;
using mrl::detail::passes;

namespace {

constexpr std::size_t s_largestRead = 0x7fffffff;
constexpr std::size_t s_aheadSize = std::size_t{64} * 1024;

std::int64_t seekIn(HBLFmFile& file, std::int64_t position, HBLFmFile::seekorigin origin) {
    return file.seek(HBLDowncastSize::int32(position), origin);
}

std::int64_t seekIn(ZORFmFile& file, std::int64_t position, HBLFmFile::seekorigin origin) {
    return file.seek(static_cast<std::size_t>(position), origin); // negative distances are cast back there
}

} // namespace

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

std::int64_t MRLDocIo::writeFile(const char* data, std::size_t size) {
    std::int64_t written = -1;
    if (m_hblFile != nullptr) {
        const std::uint32_t count = HBLDowncastSize::uint32(size);
        written = dropAhead() && passes(FileStep::write) ? m_hblFile->write(data, count) : -1;
    } else if (m_zorFile != nullptr) {
        written = passes(FileStep::write) ? m_zorFile->write(data, size) : -1;
    }
    return written == static_cast<std::int64_t>(size) ? written : -1;
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

std::int64_t MRLDocIo::seekFile(std::int64_t position, int origin) {
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

/// @return false when there is no such file.
bool MRLDocIo::openPlain() {
    std::unique_ptr<HBLFmFile> file(hblNew<HBLFmFile>(HBL_HERE));
    if (!mrl::detail::isPlainFile(m_name) || !passes(FileStep::open) ||
        file->open(m_name.c_str(), HBLFmFile::eOpenExisting, HBLFmFile::eReadOnly | HBLFmFile::eNoFollow) ==
            0) {
        return false;
    }
    m_hblFile = std::move(file);
    return true;
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

void MRLDocIo::removeFile() {
    if (!m_name.empty()) {
        HBLFmFile::remove(m_name.c_str()); // the host may have taken it
        m_name.clear();
    }
}
