#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>

class MRLPrivateData;
class MRL_Streamable;
class PLQOutputStream;

/// Binary data in one of three forms: an owned block, a borrowed one, or a stream. One thread at a time.
class MRL_EXPORT MRLBase64Binary {
public:
    MRLBase64Binary();

    /// An owned copy of `length` bytes; 0 takes a terminated text whole; null data makes an empty value.
    /// @throws HBLOutOfMemoryError
    MRLBase64Binary(const char* data, std::size_t length);
    virtual ~MRLBase64Binary();

    MRLBase64Binary(const MRLBase64Binary&) = delete;
    MRLBase64Binary& operator=(const MRLBase64Binary&) = delete;

    /// Writes the value as Base64; the bytes of a content id as they are; nothing for an empty value.
    virtual void serialize(PLQOutputStream& out) const;

    /// Appends a copy of `length` bytes (0: a terminated text whole) to an owned value; a stream is let go.
    /// @throws HBLAssertError for null data, and for a borrowed value, which cannot grow.
    void append(const char* data, std::size_t length);

    /// Borrows `length` bytes (0: a terminated text whole) in place of what was held; null empties.
    /// The data must outlive the value.
    void reference(const char* data, std::size_t length);

    /// Borrows a stream, which must outlive the value.
    void reference(const MRL_Streamable& streamable);

    /// The bytes, not terminated; null when there are none or the value is streamed.
    const char* str() const { return m_data; }

    /// The number of bytes; the largest size_t when the value is streamed.
    std::size_t pcount() const;

    const MRL_Streamable* streamable() const { return m_streamable; }

    /// Whether the bytes are the content id of an attachment in place of the data.
    void setIsContentId(int isContentId) { m_isContentId = isContentId; }
    int getIsContentId() const { return m_isContentId; }

    /// Compares the bytes; the content id mark takes no part.
    /// @throws HBLAssertError for a streamed value of equal size: streams are not compared.
    int operator==(const MRLBase64Binary& other) const;
    int operator!=(const MRLBase64Binary& other) const;

protected:
    /// For subclasses with data of their own, which they keep alive and free.
    explicit MRLBase64Binary(MRLPrivateData* privateData);

    MRLPrivateData* getPrivateData() const { return m_private; }

private:
    MRLPrivateData* m_private = nullptr;          // borrowed
    const MRL_Streamable* m_streamable = nullptr; // borrowed
    char* m_data = nullptr;                       // owned exactly when m_capacity is not 0
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    int m_isContentId = 0;
};
