#pragma once

#include "HBLCore/HBLByteBuffer.h"
#include "PLQStreams/PLQOutputStream.h"

/// The memory in which serialized messages are collected for the log. Closing changes nothing.
class MRLPLQMemoryOutputStream : public PLQOutputStream {
public:
    /// @param size bytes to have room for from the first write on
    explicit MRLPLQMemoryOutputStream(int size);
    ~MRLPLQMemoryOutputStream() override;

    void write(const char* data, std::size_t size) override;
    void flush() override;
    void close() override;

    /// The number of bytes written.
    /// @throws HBLAssertError when they do not fit an int.
    int length() const;

    /// The bytes, followed by a NUL that does not count; owned, and good until the next write or reset.
    char* bytes();

    /// Forgets the bytes and keeps the room.
    void reset();

private:
    HBLByteBuffer m_buffer;
};
