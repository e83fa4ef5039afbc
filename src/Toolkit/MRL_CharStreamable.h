#pragma once

#include "HBLCore/MRLExport.h"

#include <array>

class MRL_Streamable;
class PLQOutputStream;

/// A large text or a stream that stands in a slot made for a `const char*`: asCharStar() gives a
/// pointer that no valid UTF-8 text can look like, and isCharStreamable() tells the two apart.
/// The pieces of a chain, and what they refer to, are borrowed.
class MRL_EXPORT MRL_CharStreamable {
public:
    MRL_CharStreamable() = default;

    /// A copy of the object behind `c`, the result of asCharStar().
    /// @throws HBLAssertError when `c` is anything else.
    explicit MRL_CharStreamable(const char* c);

    /// Gives the piece its data, once only.
    /// @param isBase64 not 0 at the first piece of a chain: the whole chain is written as Base64.
    /// @throws HBLAssertError when it has data already, or `data` is null.
    void initialize(const MRL_Streamable& streamable, int isBase64);
    void initialize(const char* data, int isBase64);

    /// Puts `next` behind the last piece of this chain.
    void append(MRL_CharStreamable& next);

    const MRL_Streamable* getStreamable() const { return m_streamable; }
    const char* getData() const { return m_data; }

    /// The address to put in a text slot.
    const char* asCharStar() const;

    /// Whether the data is the content id of an attachment.
    void setIsContentId(int isContentId);
    int getIsContentId() const;

    /// Whether `c` came from asCharStar(); false for null. Reads no byte behind the end of a text.
    static bool isCharStreamable(const char* c);

    /// Writes all pieces of the chain.
    void operator>>(PLQOutputStream& out) const;

private:
    using Magic = std::array<unsigned char, 4>;
    static constexpr Magic s_plain{0xFF, 0xFF, 0xFF, 0x00};
    static constexpr Magic s_contentId{0xFF, 0xFE, 0xFF, 0x00};

    Magic m_magic = s_plain; // first: its address is what asCharStar() gives
    const MRL_Streamable* m_streamable = nullptr;
    const char* m_data = nullptr;
    MRL_CharStreamable* m_next = nullptr;
    int m_isBase64 = 0;
};
