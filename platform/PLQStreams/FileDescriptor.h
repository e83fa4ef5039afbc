#pragma once

namespace mrl::detail {

/// An open file of the system, closed with its owner.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor) {}
    ~FileDescriptor() { close(); }

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }

    /// @return 0, or the errno of a failure; the file is closed in any case.
    int close() noexcept;

private:
    int m_descriptor = -1;
};

} // namespace mrl::detail
