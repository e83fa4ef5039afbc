#pragma once

#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <cstdio>
#include <iosfwd>

class HBLByteBuffer;
class HBLFmFile;
class MRL_Streamable;
class PLQOutputStream;

/// A produced document: what it is, and its bytes as they are stored. Counted by reference; one thread at a
/// time.
class MRL_EXPORT MRLDocumentOutputI : public HBLReferenceCount {
public:
    /// The stream that a producer writes the document into; null when the document has none.
    virtual std::ostream* getOStream() = 0;

    /// Each writes the stored bytes to its target, from the first; a compressed document goes out compressed.
    virtual void operator>>(HBLByteBuffer& target) = 0;
    virtual void operator>>(std::FILE* target) = 0;
    virtual void operator>>(HBLFmFile& target) = 0;
    virtual void operator>>(std::ostream& target) = 0;
    virtual void operator>>(PLQOutputStream& target) = 0;

    /// The stored bytes with a NUL behind them; null when they are not in memory.
    virtual const char* str() = 0;
    /// The number of stored bytes.
    virtual std::size_t pcount() = 0;
    /// The document as a stream to read from; owned by the document.
    virtual MRL_Streamable* getAsAOMStreamable() = 0;
    /// Where else the document can be had; null for nowhere.
    virtual const char* getUri() const = 0;
    /// The file that has the stored bytes, closed, for the caller to take; null when there is none that
    /// others can read.
    virtual const char* availableFileName() = 0;
    /// @return not 0 when the stored bytes are a gzip stream.
    virtual int getCompressed() const = 0;
    /// @return the character encoding, null when there is none to tell.
    virtual const char* getEncoding() const = 0;
    /// @return the media type; empty when there is none to tell.
    virtual const char* getMimeType() const = 0;
    /// @return the name of the format; empty when there is none to tell.
    virtual const char* getFormat() const = 0;
};
