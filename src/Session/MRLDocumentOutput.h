#pragma once

#include "Session/MRLDocIo.h"
#include "Session/MRLDocumentOutputI.h"
#include "Session/MRLostream.h"
#include "Toolkit/MRLEncodingEnum.h"
#include "Toolkit/MRL_Streamable.h"

#include "HBLCore/MRLExport.h"

#include <cstdint>
#include <memory>
#include <string>

class I18NString;
class MRLTestInfo;
class MRLWriter;

/// A document that is written first and read afterwards: to a stream, a file, a buffer, or as an attachment.
/// It stands on a MRLDocIo, on the same behind a std::ostream, or on a byte buffer; init() says on which, and
/// begins anew each time. The first read, flush or copy ends the writing.
///
/// What is written and does not fit, on a full disk, shows in pcount(); reading or copying such a document
/// throws, so that half of one is never taken for the whole.
///
/// Counted by reference (HBLSmartPointer), or on the stack where nobody else holds it. One thread at a time.
class MRL_EXPORT MRLDocumentOutput : public MRLDocumentOutputI, public MRL_Streamable {
public:
    /// @throws HBLAssertError before MRLDocIo::initialize().
    MRLDocumentOutput();
    ~MRLDocumentOutput() override;

    /// On a byte buffer that the document owns from now on.
    void init(const HBLByteBuffer* buffer);
    /// On a byte buffer of the caller's, who keeps it longer than the document.
    void init(const HBLByteBuffer& buffer);
    /// @param useOStream not 0 gives the document a std::ostream.
    /// @param compress not 0 packs the document with gzip, unless the property "DocumentOutputCompression"
    /// is 0.
    void init(int useOStream, int compress);
    /// Packs the document for eMIMECompressed, where `allowCompress` is not 0.
    void init(int useOStream, int allowCompress, MRLEncodingEnum::Enum encoding);
    /// Under test, with `testInfo`, the document is not packed; else it is where `mustCompress` is 0 or for
    /// eMIMECompressed, and `allowCompress` is not 0.
    void init(int useOStream, int allowCompress, const MRLTestInfo* testInfo, int mustCompress,
              MRLEncodingEnum::Enum encoding);

    /// Each appends to the document; an I18NString in UTF-8.
    /// @throws HBLAssertError for null, and on a byte buffer.
    MRLDocumentOutput& write(const char* s, std::size_t size);
    MRLDocumentOutput& write(const char* s);
    MRLDocumentOutput& write(const std::string& text);
    MRLDocumentOutput& write(const I18NString& text);
    MRLDocumentOutput& operator<<(const char* s) { return write(s); }
    MRLDocumentOutput& operator<<(const std::string& text) { return write(text); }
    MRLDocumentOutput& operator<<(const I18NString& text) { return write(text); }

    /// @throws PLQStreamError when the document is incomplete or cannot be read; what the target throws.
    void operator>>(HBLByteBuffer& target) override; // replaces what it has
    void operator>>(std::FILE* f) override;          // ferror() tells of its failures
    void operator>>(HBLFmFile& target) override;
    void operator>>(std::ostream& target) override; // its state tells of its failures
    void operator>>(PLQOutputStream& target) override;
    void operator>>(PLQOutputStream& target) const override;
    void operator>>(MRLDocIo& target);
    virtual void operator>>(MRLWriter& writer);

    std::ostream* getOStream() override { return m_ostream.get(); }
    const char* str() override;
    std::size_t pcount() override;
    MRL_Streamable* getAsAOMStreamable() override { return this; }
    const char* getUri() const override { return nullptr; }
    /// For a document in an unencrypted file. The file goes with the document, unless the caller moves it
    /// away.
    const char* availableFileName() override;
    int getCompressed() const override { return m_compressed; }
    const char* getEncoding() const override { return m_encoding.empty() ? nullptr : m_encoding.c_str(); }
    const char* getMimeType() const override { return m_mimeType.c_str(); }
    const char* getFormat() const override { return m_format.c_str(); }

    /// Null clears.
    void setMimeType(const char* mimeType, const char* encoding);
    void setFormat(const char* format);

    /// The MRLDocIo when the document stands on one without a std::ostream, else null.
    /// @param reopen not 0 takes it back to its beginning, for reading.
    MRLDocIo* getIoInterface(int reopen);

    using MRL_Streamable::read;
    /// @return the bytes read, or endOfStream.
    /// @throws HBLAssertError for a null `buffer` and a `size` of 0; PLQStreamError as operator>>.
    std::size_t read(char* buffer, std::size_t size) override;
    /// Appends until `size` bytes came or there are no more.
    std::size_t read(HBLByteBuffer& buffer, std::size_t size) override;
    /// Back to the beginning; the document stays.
    void close() override;
    /// @throws HBLAssertError for an unknown origin.
    std::int64_t seek(std::int64_t position, eMRL_Streamable_Seek origin) override;

protected:
    /// Packs only when `compress` and `allowCompress` are not 0, and the property does not forbid it.
    void initInterface(int useOStream, int allowCompress, int compress);
    /// Gives up the document: an owned buffer, the stream, the store with its file.
    virtual void reset();

private:
    bool standsOnDocIo() const;
    void flushStream();
    void requireWhole() const;
    void rewind();
    std::size_t readBuffer(char* buffer, std::size_t size);
    std::size_t readDocIo(char* buffer, std::size_t size);

    const HBLByteBuffer* m_byteBuffer = nullptr; // owned when m_ownsBuffer is not 0
    int m_ownsBuffer = 0;
    std::unique_ptr<MRLostream> m_ostream; // borrows m_docIo
    MRLDocIo m_docIo;
    int m_compressed = 0;
    std::string m_mimeType;
    std::string m_encoding;
    std::string m_format;
    std::uint64_t m_position = 0; // in m_byteBuffer; on m_docIo 0 until it was reopened, then 1
    bool m_incomplete = false;    // m_docIo took less than was written
};
