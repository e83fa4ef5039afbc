#include "Session/MRLDocumentOutput.h"

#include "Session/MRLProperty.h"
#include "Session/MRLWriterT.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmFile.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQOutputStream.h"
#include "PLQStreams/PLQStreamError.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr std::size_t s_copyPiece = 2048;
constexpr std::size_t s_readPiece = 1024;

/// Its failures show in ferror(), as for all who write to it.
class StdioWriter : public MRLWriter {
public:
    explicit StdioWriter(std::FILE* target)
        : m_target(target) {}
    void write(const char* data, std::size_t size) override { std::fwrite(data, 1, size, m_target); }

private:
    std::FILE* m_target;
};

} // namespace

MRLDocumentOutput::MRLDocumentOutput() = default;

MRLDocumentOutput::~MRLDocumentOutput() {
    MRLDocumentOutput::reset();
}

void MRLDocumentOutput::init(const HBLByteBuffer* buffer) {
    reset();
    m_compressed = 0;
    m_byteBuffer = buffer;
    m_ownsBuffer = 1;
}

void MRLDocumentOutput::init(const HBLByteBuffer& buffer) {
    reset();
    m_compressed = 0;
    m_byteBuffer = &buffer;
}

void MRLDocumentOutput::init(int useOStream, int compress) {
    initInterface(useOStream, 1, compress);
}

void MRLDocumentOutput::init(int useOStream, int allowCompress, MRLEncodingEnum::Enum encoding) {
    initInterface(useOStream, allowCompress, encoding == MRLEncodingEnum::eMIMECompressed ? 1 : 0);
}

void MRLDocumentOutput::init(int useOStream, int allowCompress, const MRLTestInfo* testInfo, int mustCompress,
                             MRLEncodingEnum::Enum encoding) {
    const bool asked = mustCompress == 0 || encoding == MRLEncodingEnum::eMIMECompressed;
    initInterface(useOStream, allowCompress, testInfo == nullptr && asked ? 1 : 0);
}

void MRLDocumentOutput::initInterface(int useOStream, int allowCompress, int compress) {
    if (compress != 0) {
        MRLProperty::getInstance().getValue("DocumentOutputCompression", compress);
    }
    reset();
    m_compressed = compress != 0 && allowCompress != 0 ? 1 : 0;
    if (useOStream != 0) {
        m_docIo.init(0);
        m_ostream.reset(hblNew<MRLostream>(HBL_HERE, m_compressed, &m_docIo, 1));
    } else {
        m_docIo.init(m_compressed);
    }
}

void MRLDocumentOutput::reset() {
    if (m_ownsBuffer != 0) {
        delete m_byteBuffer;
    }
    m_byteBuffer = nullptr;
    m_ownsBuffer = 0;
    m_ostream.reset();
    m_docIo.reset();
    m_position = 0;
    m_incomplete = false;
}

MRLDocumentOutput& MRLDocumentOutput::write(const char* s, std::size_t size) {
    HBL_ASSERT(s);
    if (m_ostream != nullptr) {
        m_ostream->write(s, static_cast<std::streamsize>(size));
        return *this;
    }
    MRLDocIo* const pDocIo = m_docIo.isInit() != 0 ? &m_docIo : nullptr;
    HBL_ASSERT(pDocIo);
    if (pDocIo->write(s, size) < 0) {
        m_incomplete = true;
    }
    return *this;
}

MRLDocumentOutput& MRLDocumentOutput::write(const char* s) {
    HBL_ASSERT(s);
    return write(s, std::strlen(s));
}

MRLDocumentOutput& MRLDocumentOutput::write(const std::string& text) {
    return write(text.data(), text.size());
}

MRLDocumentOutput& MRLDocumentOutput::write(const I18NString& text) {
    return write(text.toUtf8());
}

/// A file that was closed counts too: it can be opened again.
bool MRLDocumentOutput::standsOnDocIo() const {
    return m_docIo.isInit() != 0 || !m_docIo.getName().empty();
}

void MRLDocumentOutput::flushStream() {
    if (m_ostream != nullptr) {
        m_ostream->flush();
    }
}

void MRLDocumentOutput::requireWhole() const {
    if (m_incomplete || (m_ostream != nullptr && m_ostream->bad())) {
        HBL_THROW(PLQStreamError(ePLQStreamFile, "A document is incomplete: its store has " +
                                                     std::to_string(m_docIo.pcount()) +
                                                     " bytes, and did not take all that was written."),
                  "MRLDocumentOutput::read");
    }
}

/// Ends the writing, and goes to the first byte.
void MRLDocumentOutput::rewind() {
    flushStream();
    requireWhole();
    m_docIo.reopen();
    m_position = 1;
}

const char* MRLDocumentOutput::str() {
    if (standsOnDocIo()) {
        flushStream();
        return m_docIo.str();
    }
    return m_byteBuffer != nullptr ? m_byteBuffer->str() : nullptr;
}

std::size_t MRLDocumentOutput::pcount() {
    if (standsOnDocIo()) {
        flushStream();
        return m_docIo.pcount();
    }
    return m_byteBuffer != nullptr ? m_byteBuffer->pcount() : 0;
}

std::size_t MRLDocumentOutput::read(char* buffer, std::size_t size) {
    HBL_ASSERT(buffer);
    HBL_ASSERT(size);
    return standsOnDocIo() ? readDocIo(buffer, size) : readBuffer(buffer, size);
}

std::size_t MRLDocumentOutput::readDocIo(char* buffer, std::size_t size) {
    if (m_position == 0) {
        rewind();
    }
    const std::int64_t got = m_docIo.read(buffer, size);
    if (got < 0 || m_docIo.hasFailed() != 0) {
        HBL_THROW(PLQStreamError(ePLQStreamFile, "The temporary file \"" + m_docIo.getName() +
                                                     "\" of a document cannot be read, or is not as it was "
                                                     "written."),
                  "MRLDocumentOutput::read");
    }
    return got > 0 ? static_cast<std::size_t>(got) : endOfStream;
}

std::size_t MRLDocumentOutput::readBuffer(char* buffer, std::size_t size) {
    if (m_byteBuffer == nullptr || m_position >= m_byteBuffer->pcount()) {
        return endOfStream;
    }
    const std::size_t count = std::min(size, m_byteBuffer->pcount() - m_position);
    std::memcpy(buffer, m_byteBuffer->str() + m_position, count);
    m_position += count;
    return count;
}

std::size_t MRLDocumentOutput::read(HBLByteBuffer& buffer, std::size_t size) {
    std::array<char, s_readPiece> piece;
    std::size_t total = 0;
    while (total < size) {
        const std::size_t got = read(piece.data(), std::min(piece.size(), size - total));
        if (isEnd(got)) {
            break;
        }
        buffer.appendChars(piece.data(), got);
        total += got;
    }
    return total > 0 ? total : endOfStream;
}

void MRLDocumentOutput::close() {
    if (standsOnDocIo()) {
        rewind();
    } else {
        m_position = 0;
    }
}

std::int64_t MRLDocumentOutput::seek(std::int64_t position, eMRL_Streamable_Seek origin) {
    if (origin < eMRL_Streamable_SeekBegin || origin > eMRL_Streamable_SeekEnd) {
        HBL_ASSERT(FALSE);
    }
    if (standsOnDocIo()) {
        if (m_position == 0) {
            rewind();
        }
        return m_docIo.seek(position, origin);
    }
    const std::uint64_t size = m_byteBuffer != nullptr ? m_byteBuffer->pcount() : 0;
    const std::uint64_t from = origin == eMRL_Streamable_SeekCurrent ? m_position
                               : origin == eMRL_Streamable_SeekEnd   ? size - 1
                                                                     : 0;
    const std::uint64_t to = from + static_cast<std::uint64_t>(position); // before the beginning is huge
    if (to >= size) {
        return -1;
    }
    m_position = to;
    return static_cast<std::int64_t>(to);
}

void MRLDocumentOutput::operator>>(MRLWriter& writer) {
    if (!standsOnDocIo()) {
        if (m_byteBuffer != nullptr && m_byteBuffer->pcount() > 0) {
            writer.write(m_byteBuffer->str(), m_byteBuffer->pcount());
        }
        return;
    }
    rewind();
    if (const char* const bytes = m_docIo.str()) {
        writer.write(bytes, m_docIo.pcount());
        return;
    }
    std::array<char, s_copyPiece> piece;
    for (;;) {
        const std::size_t got = readDocIo(piece.data(), piece.size());
        if (isEnd(got)) {
            return;
        }
        writer.write(piece.data(), got);
    }
}

void MRLDocumentOutput::operator>>(HBLByteBuffer& target) {
    if (&target == m_byteBuffer) {
        return; // it has the document already
    }
    target.reset();
    if (standsOnDocIo()) {
        rewind();
    }
    if (!standsOnDocIo() || m_docIo.str() != nullptr) {
        target.appendChars(str(), pcount());
        return;
    }
    const std::int64_t length = m_docIo.seek(0, eMRLDocIo_SeekEnd);
    m_docIo.seek(0, eMRLDocIo_SeekBegin);
    if (length > 0) {
        target.reserve(static_cast<std::size_t>(length));
        const std::size_t got = readFully(target.str(), static_cast<std::size_t>(length));
        target.setLength(isEnd(got) ? 0 : got);
    }
}

void MRLDocumentOutput::operator>>(std::FILE* f) {
    HBL_ASSERT(f);
    StdioWriter writer(f);
    *this >> static_cast<MRLWriter&>(writer);
}

void MRLDocumentOutput::operator>>(HBLFmFile& target) {
    MRLWriterT writer(target);
    *this >> static_cast<MRLWriter&>(writer);
}

void MRLDocumentOutput::operator>>(std::ostream& target) {
    MRLWriterT writer(target);
    *this >> static_cast<MRLWriter&>(writer);
}

void MRLDocumentOutput::operator>>(PLQOutputStream& target) {
    MRLWriterT writer(target);
    *this >> static_cast<MRLWriter&>(writer);
}

// Reading moves the position, which is no part of what the document is.
void MRLDocumentOutput::operator>>(PLQOutputStream& target) const {
    const_cast<MRLDocumentOutput&>(*this) >> target;
}

void MRLDocumentOutput::operator>>(MRLDocIo& target) {
    MRLWriterT writer(target);
    *this >> static_cast<MRLWriter&>(writer);
}

const char* MRLDocumentOutput::availableFileName() {
    if (!standsOnDocIo()) {
        return nullptr;
    }
    flushStream();
    if (m_docIo.str() != nullptr || m_docIo.encrypted() != 0) {
        return nullptr;
    }
    requireWhole();
    m_docIo.close();
    m_position = 0;
    return m_docIo.getName().c_str();
}

void MRLDocumentOutput::setMimeType(const char* mimeType, const char* encoding) {
    m_mimeType = mimeType != nullptr ? mimeType : "";
    m_encoding = encoding != nullptr ? encoding : "";
}

void MRLDocumentOutput::setFormat(const char* format) {
    m_format = format != nullptr ? format : "";
}

MRLDocIo* MRLDocumentOutput::getIoInterface(int reopen) {
    if (m_docIo.isInit() == 0 || m_ostream != nullptr) {
        return nullptr;
    }
    if (reopen != 0) {
        rewind();
    }
    return &m_docIo;
}
