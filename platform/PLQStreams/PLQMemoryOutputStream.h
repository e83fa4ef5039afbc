#pragma once

#include "HBLCore/HBLByteBuffer.h"
#include "PLQStreams/PLQOutputStream.h"

/// Collects what is written in memory. Closing changes nothing: the bytes stay readable.
class MRL_EXPORT PLQMemoryOutputStream : public PLQOutputStream {
public:
    /// @param initialSize bytes to have room for from the first write on
    /// @param growth bytes by which the room grows at least
    PLQMemoryOutputStream(std::size_t initialSize, std::size_t growth);
    ~PLQMemoryOutputStream() override;

    void write(const char* data, std::size_t length) override;

    /// The number of bytes written.
    std::size_t length() const;

    /// The bytes, followed by a NUL that does not count; owned, and good until the next write or reset.
    const char* bytes() const;

    /// Forgets the bytes and keeps the room.
    void reset();

private:
    HBLByteBuffer m_buffer;
};
