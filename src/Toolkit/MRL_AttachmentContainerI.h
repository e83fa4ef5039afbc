#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>

class MRL_Streamable;

/// Takes the bytes of one attachment and gives them back as text or as a stream.
class MRL_EXPORT MRL_AttachmentContainerI {
public:
    /// May fail: an implementation can have a file to close.
    virtual ~MRL_AttachmentContainerI() noexcept(false);

    /// Appends `size` bytes.
    virtual void write(const char* data, std::size_t size) = 0;

    /// The bytes as text, owned by the container; null when they are to be had as a stream only.
    virtual const char* c_str() = 0;

    /// The bytes as a stream, owned by the container; null when c_str() has them.
    virtual MRL_Streamable* getStreamable() = 0;

protected:
    MRL_AttachmentContainerI() = default;
};
