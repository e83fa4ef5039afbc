#pragma once

#include "Session/MRLDocIoOutputStream.h"

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class HBLByteBuffer;
class HBLFmFile;
class HBLI18NBuffer;
class I18NString;
class PLQGZIPOutputStream;
class ZORFmFile;

/// Where MRLDocIo::seek() counts from.
enum eMRLDocIo_Seek : int { eMRLDocIo_SeekBegin = 0, eMRLDocIo_SeekCurrent = 1, eMRLDocIo_SeekEnd = 2 };

/// The bytes of a document: in a pooled buffer while they fit, in a temporary file from the write that does
/// not. They can be packed with gzip on the way in, and the file can be encrypted (the configuration's
/// "encryptTemporaryFiles"). The file is its owner's alone, and goes with the document.
///
/// One thread at a time; the pool behind it is shared and safe.
class MRL_EXPORT MRLDocIo {
public:
    /// Reads the properties "outputBufferSize" (bytes that stay in memory; 300000 when absent or 0) and
    /// "outputBufferPoolSize" (free buffers that are kept; 30 when absent, 0 or above 65535). Counted: the
    /// first call reads. The host calls it before the first document. Thread-safe.
    static void initialize();
    /// Counted: the last call frees the pool. Documents that still live keep what they have, and cannot be
    /// given a new buffer. Does nothing without an initialize() to match. Thread-safe.
    static void terminate();

    /// @throws HBLAssertError before initialize().
    MRLDocIo();
    /// Removes the file and gives back the buffer.
    virtual ~MRLDocIo();

    MRLDocIo(const MRLDocIo&) = delete;
    MRLDocIo& operator=(const MRLDocIo&) = delete;

    /// Reads at the position and moves it.
    /// @return the bytes read, 0 at the end; -1 for a null `buffer`, without a store, and when the encrypted
    /// file cannot be read. What a plain file gave before it failed counts; hasFailed() tells.
    /// @throws HBLAssertError while packed data is being written.
    virtual std::int64_t read(char* buffer, std::size_t size);

    /// Writes at the position and moves it.
    /// @return `size`, 0 for data that is packed; -1 when `data` is null, there is no store, or the store
    /// takes less. In memory nothing was written then, and the next write tries for a file again.
    /// @throws HBLAssertError when no temporary directory or file can be made, and for more than
    /// 4294967295 bytes at once into a plain file.
    virtual std::int64_t write(const char* data, std::size_t size);

    /// Moves the position. In memory it can go beyond the end, up to the size of the buffer; what is skipped
    /// then reads as zeros.
    /// @param origin eMRLDocIo_Seek; any other value counts as the beginning.
    /// @return the new position, or -1 when there is no such place; the position then stays.
    /// @throws HBLAssertError while packed data is being written, and for a distance beyond 32 bits in a
    /// plain file.
    virtual std::int64_t seek(std::int64_t position, int origin);

    /// The path of the temporary file; empty when there is none.
    virtual const std::string& getName() const;

    /// Drops what there was, and begins a new document in memory.
    /// @param compress not 0 packs what is written.
    /// @throws HBLAssertError after the last terminate().
    void init(int compress);
    /// Not 0 when there is a store: a buffer or an open file.
    int isInit() const;
    /// Not 0 when the open file is encrypted.
    int encrypted() const { return m_zorFile != nullptr ? 1 : 0; }
    /// Not 0 when packed data lost something on its way into the store, or a read of the file failed since
    /// the last reopen().
    int hasFailed() const { return m_incomplete || m_readFailed ? 1 : 0; }

    /// The bytes in memory with a NUL behind them, good until the next write; null when they are in a file.
    const char* str();
    /// Bytes in the store.
    std::size_t pcount() const;

    /// Ends packed data, and goes back to the beginning for reading. A closed file is opened again, as a
    /// plain one: what was encrypted cannot be read any more.
    /// @throws PLQStreamError when the packed data is incomplete, or the file is gone or cannot be used.
    void reopen();
    /// Ends packed data and closes the file, which stays.
    /// @throws PLQStreamError when the system could not keep what was written.
    void close();
    /// Closes, removes the file, and gives back the buffer.
    void reset();

    /// Each writes a text or bytes; nothing for null or empty.
    MRLDocIo& operator<<(const char* text);
    MRLDocIo& operator<<(const HBLByteBuffer& bytes);
    MRLDocIo& operator<<(const std::string& text);
    MRLDocIo& operator<<(const I18NString& text);    // in UTF-8
    MRLDocIo& operator<<(const HBLI18NBuffer& text); // in UTF-8

private:
    friend class MRLDocIoOutputStream;

    using Buffer = std::unique_ptr<char[]>;

    bool fileMode();
    template <class File>
    std::unique_ptr<File> moveInto() const;
    std::int64_t writeImpl(const char* data, std::size_t size);
    std::int64_t writeBuffer(const char* data, std::size_t size);
    bool openPlain();
    std::int64_t writeFile(const char* data, std::size_t size);
    std::int64_t readFile(char* buffer, std::size_t size);
    std::int64_t readPlain(char* buffer, std::size_t size);
    bool dropAhead();
    std::int64_t seekFile(std::int64_t position, int origin);
    std::int64_t seekBuffer(std::int64_t position, int origin);
    void finishPacked();
    bool closeFiles();
    void removeFile();
    void giveBackBuffer();
    [[noreturn]] void throwIncomplete(const char* function) const;

    static Buffer getBuffer(std::size_t& capacity);
    static void releaseBuffer(Buffer buffer, std::size_t capacity);
    static std::vector<Buffer>& pool();

    std::unique_ptr<ZORFmFile> m_zorFile; // the temporary file in its encrypted form
    std::unique_ptr<HBLFmFile> m_hblFile; // and in its plain form; null while in memory
    std::string m_name;
    Buffer m_buffer;            // from the pool; null in a file
    std::size_t m_capacity = 0; // of m_buffer, without the byte for the NUL
    std::size_t m_size = 0;
    std::size_t m_position = 0; // in m_buffer; never beyond m_capacity
    MRLDocIoOutputStream m_outputStream;
    std::unique_ptr<PLQGZIPOutputStream> m_gzip; // while packed data is being written
    int m_compress = 0;
    bool m_incomplete = false; // packed data has a hole
    bool m_readFailed = false;
    // Read ahead of the position of the plain file, since documents are copied in small pieces.
    Buffer m_ahead;               // made by the first read
    std::size_t m_aheadBegin = 0; // what is left: from here
    std::size_t m_aheadEnd = 0;   // to here

    static HBLThreadCriticalSection s_lock; // for all below
    static int m_initCount;
    static unsigned int m_bufferSize; // 0 when not initialized
    static unsigned int s_poolLimit;
};
