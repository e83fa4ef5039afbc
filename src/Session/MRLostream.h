#pragma once

#include "Session/PLQDocIoOutputStream.h"

#include "HBLCore/MRLExport.h"
#include "PLQStreams/PLQGZIPOutputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "PLQStreams/PLQstreambuf.h"

#include <cstddef>
#include <memory>
#include <ostream>

class MRLDocIo;

/// A std::ostream into a document or into memory, packed with gzip where asked. A store that takes no more
/// shows as bad().
class MRL_EXPORT MRLostream : public std::ostream {
public:
    /// @param compressed not 0 packs what is written.
    /// @param docIo where the bytes go, set up without compression; borrowed.
    MRLostream(int compressed, MRLDocIo* docIo, int mostDerived = 1);
    /// Into memory: see str() and pcount().
    /// @param initialSize, growth bytes of room, as in PLQMemoryOutputStream.
    MRLostream(int compressed, std::size_t initialSize, std::size_t growth, int mostDerived = 1);
    /// Flushes; a failure goes unnoticed here.
    ~MRLostream() override;

    MRLostream(const MRLostream&) = delete;
    MRLostream& operator=(const MRLostream&) = delete;

    /// Ends the data: hands it all to the store, with the end of the packed form. Where nothing was written,
    /// nothing ends. What is written into packed data afterwards makes the stream bad.
    /// @throws PLQStreamError when the store does not take the end of the packed form.
    MRLostream& flush();

    /// The bytes in memory, a NUL behind them; null when they go into a document.
    const char* str() const;
    /// The bytes that the store has.
    std::size_t pcount() const;

private:
    void wrap(PLQOutputStream& target);

    std::unique_ptr<PLQMemoryOutputStream> m_memory; // null for a document
    PLQDocIoOutputStream m_docIoStream;
    PLQGZIPOutputStream m_gzip;
    PLQstreambuf m_streamBuffer;
    MRLDocIo* m_docIo = nullptr; // borrowed
    int m_compressed;
    int m_finished = 0; // the packed data has its end
};
