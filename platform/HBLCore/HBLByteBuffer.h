#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <string_view>

/// Bytes in one growing block, always with a NUL behind the last. One thread at a time.
/// Everything that grows throws HBLOutOfMemoryError when there is no room; the bytes then stay as
/// they were.
class MRL_EXPORT HBLByteBuffer {
public:
    HBLByteBuffer() noexcept = default;
    /// @param terminated 1; every buffer keeps a NUL behind its bytes.
    /// @param initial bytes of room that the first write allocates at least.
    /// @param growth the least step in bytes by which the room grows; 0 doubles it.
    HBLByteBuffer(int terminated, std::size_t initial, std::size_t growth) noexcept;
    HBLByteBuffer(const HBLByteBuffer& other);
    HBLByteBuffer(HBLByteBuffer&& other) noexcept;
    HBLByteBuffer& operator=(HBLByteBuffer other) noexcept;
    virtual ~HBLByteBuffer();

    /// The bytes, NUL behind them, never null; good until the buffer changes. What is written through
    /// the pointer must stay within pcount(), or within reserved room that setLength() then claims.
    char* str();
    const char* str() const noexcept;
    /// The number of bytes.
    std::size_t pcount() const noexcept { return m_length; }
    bool empty() const noexcept { return m_length == 0; }
    std::string_view view() const noexcept { return {str(), m_length}; }

    /// Appends `size` bytes, which may lie in this buffer. A null `data` appends nothing.
    void appendChars(const char* data, std::size_t size);
    void append(char c);
    /// Appends text up to its NUL; null appends nothing.
    void append(const char* text);
    void append(std::string_view text) { appendChars(text.data(), text.size()); }
    HBLByteBuffer& operator<<(const char* text);
    HBLByteBuffer& operator<<(std::string_view text);
    HBLByteBuffer& operator<<(char c);
    /// Appends the number in decimal.
    HBLByteBuffer& operator<<(int number);
    HBLByteBuffer& operator<<(const HBLByteBuffer& other);

    /// Replaces what is held by `text`, in a block with no room to spare: for bytes that are kept. `text`
    /// must not lie in this buffer.
    void assignExactly(std::string_view text);

    /// Makes room for `size` more bytes.
    void reserve(std::size_t size);
    /// Cuts to `length` bytes, or claims bytes written into reserved room; room not reserved before
    /// is zeroed.
    void setLength(std::size_t length);
    /// Drops `size` leading bytes, or all when there are fewer.
    void chop(std::size_t size) noexcept;
    /// Drops all bytes and keeps the room.
    void reset() noexcept;

protected:
    char* m_pBuffer = nullptr; // m_capacity + 1 bytes of HBLArena, or null

private:
    void grow(std::size_t capacity);

    std::size_t m_length = 0;
    std::size_t m_capacity = 0; // without the byte for the NUL
    std::size_t m_initial = 0;
    std::size_t m_growth = 0;
};
