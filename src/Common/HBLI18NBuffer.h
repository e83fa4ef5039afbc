#pragma once

#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <iosfwd>

/// UTF-16 text for a short while: up to 15 characters need no heap, comparisons go by bytes, and two
/// checksums of the text are kept. One thread at a time, also for constant operations.
///
/// Sizes are in bytes and count the two-byte terminator; an empty buffer has none, and size 0. Whatever
/// allocates throws HBLOutOfMemoryError; the buffer is then not to be used but for its end.
class MRL_EXPORT HBLI18NBuffer {
public:
    HBLI18NBuffer() = default;
    HBLI18NBuffer(const HBLI18NBuffer& other);
    HBLI18NBuffer(const I18NString& text);
    HBLI18NBuffer(const unsigned short* text); ///< up to the zero; null is empty
    virtual ~HBLI18NBuffer();

    HBLI18NBuffer& operator=(const HBLI18NBuffer& other);
    HBLI18NBuffer& operator=(const I18NString& text);
    HBLI18NBuffer& operator=(const unsigned short* text);

    // Each makes a new block of just the needed size; an empty right side changes nothing.
    HBLI18NBuffer& operator+=(const HBLI18NBuffer& other);
    HBLI18NBuffer& operator+=(const I18NString& text);
    HBLI18NBuffer& operator+=(const unsigned short* text);

    bool operator==(const HBLI18NBuffer& other) const;
    bool operator!=(const HBLI18NBuffer& other) const;
    bool operator==(const I18NString& text) const;
    bool operator!=(const I18NString& text) const;
    /// Compares getCrc().
    bool operator==(unsigned int crc) const;
    bool operator!=(unsigned int crc) const;

    I18NString getString() const;
    void getString(I18NString& out) const;

    /// Bytes with the terminator.
    unsigned int getSize() const { return m_size; }
    /// Bytes without the terminator.
    unsigned int getDataSize() const { return m_size < TERMINATOR ? 0 : m_size - TERMINATOR; }
    /// 16-bit units without the terminator.
    unsigned int getCodepoints() const { return getDataSize() / UNIT; }
    /// The text with its terminator; never null, good until the text changes.
    const void* getBuffer() const { return m_size == 0 ? m_inline : m_buffer; }

    /// The CRC-32 of the bytes with the terminator; 0 when empty.
    unsigned int getCrc() const;
    /// The same of the text with its ASCII letters in lower case, byte by byte.
    unsigned int getCssCrc() const;

    /// Cuts to `units` 16-bit units; a text that is no longer stays. The checksums stay those of the longer
    /// text where they were asked for before.
    void truncate(unsigned int units);
    /// Not 0 for size 0. A text cut to 0 units still has its terminator and is not empty.
    int empty() const { return m_size == 0 ? 1 : 0; }
    /// Drops the text and keeps the room.
    void clear();
    /// Makes room for `bytes`, if there is none at all yet.
    void reserve(unsigned int bytes);

    // 1 or 0; an empty text is neither beginning nor end of another.
    int startsWith(const HBLI18NBuffer& other) const;
    int endsWith(const HBLI18NBuffer& other) const;

protected:
    /// Gives `m_buffer` room for `bytes`: what it has when that is enough, else new room, without the text.
    void createBuffer(unsigned int bytes);
    /// Size and checksums become 0, nothing else.
    void reset();

private:
    static constexpr unsigned int UNIT = 2;
    static constexpr unsigned int TERMINATOR = 2;
    static constexpr unsigned int INLINE_BYTES = 32;

    struct Text { // borrowed; size as in this class
        const void* data;
        unsigned int size;
    };
    static Text textOf(const HBLI18NBuffer& buffer) { return {buffer.getBuffer(), buffer.m_size}; }
    static Text textOf(const I18NString& text);
    static Text textOf(const unsigned short* text);
    void assign(const Text& text);
    void append(const Text& text);
    bool holdsTextOf(const I18NString& text) const;
    int matches(const HBLI18NBuffer& other, bool atEnd) const;

    alignas(8) unsigned char m_inline[INLINE_BYTES] = {};
    unsigned char* m_buffer = nullptr; // m_inline, a block that is owned, or null
    unsigned int m_capacity = 0;       // bytes at m_buffer
    unsigned int m_size = 0;
    mutable unsigned int m_crc = 0; // 0: not known
    mutable unsigned int m_cssCrc = 0;
};

/// In UTF-8.
MRL_EXPORT std::ostream& operator<<(std::ostream& out, const HBLI18NBuffer& buffer);
MRL_EXPORT std::ostream& operator<<(std::ostream& out, HBLI18NBuffer& buffer);
