#pragma once

#include "PLQStreams/FileDescriptor.h"
#include "PLQStreams/PLQOutputStream.h"

#include <memory>
#include <string>

/// Writes a file through a small buffer. A write that fails breaks the stream: the file keeps an exact
/// beginning of the data, and every later write fails in the same way.
class MRL_EXPORT PLQFileOutputStream : public PLQOutputStream {
public:
    /// Creates the file, or empties it; with `append` not 0, writes behind what it holds.
    /// @throws PLQStreamError with the path and the system's reason.
    explicit PLQFileOutputStream(std::string path, int append = 0);

    /// Closes the file; a failure goes unnoticed here.
    ~PLQFileOutputStream() override;

    /// @throws PLQStreamError when the file is closed or takes no more.
    void write(const char* data, std::size_t length) override;

    /// Hands the buffer to the system (which may still hold it in its cache).
    void flush() override;

    /// Flushes and closes. Further calls do nothing.
    void close() override;

private:
    void drain();
    void put(const char* data, std::size_t length);

    std::string m_path;
    mrl::detail::FileDescriptor m_file;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_held = 0; // bytes in m_buffer
    int m_error = 0;        // errno of the write that broke the stream
};
