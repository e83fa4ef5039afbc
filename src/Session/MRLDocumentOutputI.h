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
    /// The stream that a producer writes the document into.
    virtual std::ostream& getOStream() = 0;

    /// Each writes the stored bytes to its target; a compressed document goes out compressed.
    virtual void operator>>(HBLByteBuffer& target) = 0;
    virtual void operator>>(std::FILE* target) = 0;
    virtual void operator>>(HBLFmFile& target) = 0;
    virtual void operator>>(std::ostream& target) = 0;
    virtual void operator>>(PLQOutputStream& target) = 0;

    virtual const char* str() = 0;
    virtual std::size_t pcount() = 0;
    /// The document as a stream to read from; owned by the document.
    virtual MRL_Streamable* getAsAOMStreamable() = 0;
    virtual const char* getUri() const = 0;
    virtual const char* availableFileName() const = 0;
    /// @return not 0 when the stored bytes are a gzip stream.
    virtual int getCompressed() const = 0;
    /// @return the character encoding, null when there is none to tell.
    virtual const char* getEncoding() const = 0;
    virtual const char* getMimeType() const = 0;
    virtual const char* getFormat() const = 0;
};
