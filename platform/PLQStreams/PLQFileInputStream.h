#pragma once

#include "PLQStreams/FileDescriptor.h"
#include "PLQStreams/PLQInputStream.h"

#include <memory>
#include <string>

/// Reads a file through a small buffer.
class MRL_EXPORT PLQFileInputStream : public PLQInputStream {
public:
    /// Opens the file.
    /// @throws PLQStreamError with the path and the system's reason.
    explicit PLQFileInputStream(std::string path);
    ~PLQFileInputStream() override;

    using PLQInputStream::read;

    /// @throws PLQStreamError when the file is closed or cannot be read.
    std::size_t read(char* buffer, std::size_t count) override;

    /// Closes the file. Further calls do nothing.
    void close() override;

private:
    std::size_t get(char* buffer, std::size_t count);

    std::string m_path;
    mrl::detail::FileDescriptor m_file;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_begin = 0; // what is left of m_buffer: from here
    std::size_t m_end = 0;   // to here
};
