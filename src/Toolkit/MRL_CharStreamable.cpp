#include "Toolkit/MRL_CharStreamable.h"

#include "Toolkit/MRL_Streamable.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQBase64OutputStream.h"

#include <cstring>
#include <type_traits>

// asCharStar() and back again is only sound while the magic stands at the object's own address.
static_assert(std::is_standard_layout_v<MRL_CharStreamable>);

MRL_CharStreamable::MRL_CharStreamable(const char* c) {
    HBL_ASSERT(MRL_CharStreamable::isCharStreamable(c));
    *this = *reinterpret_cast<const MRL_CharStreamable*>(c);
}

void MRL_CharStreamable::initialize(const MRL_Streamable& streamable, int isBase64) {
    HBL_ASSERT(!m_streamable && !m_data);
    m_streamable = &streamable;
    m_isBase64 = isBase64;
}

void MRL_CharStreamable::initialize(const char* data, int isBase64) {
    HBL_ASSERT(!m_streamable && !m_data);
    HBL_ASSERT(data);
    m_data = data;
    m_isBase64 = isBase64;
}

void MRL_CharStreamable::append(MRL_CharStreamable& next) {
    MRL_CharStreamable* last = this;
    while (last->m_next != nullptr)
        last = last->m_next;
    last->m_next = &next;
}

const char* MRL_CharStreamable::asCharStar() const {
    return reinterpret_cast<const char*>(m_magic.data());
}

void MRL_CharStreamable::setIsContentId(int isContentId) {
    m_magic = isContentId != 0 ? s_contentId : s_plain;
}

int MRL_CharStreamable::getIsContentId() const {
    return m_magic == s_contentId ? 1 : 0;
}

bool MRL_CharStreamable::isCharStreamable(const char* c) {
    if (c == nullptr)
        return false;
    // Byte by byte, so that a shorter text is left at its end.
    const auto begins = [c](const Magic& magic) {
        for (std::size_t i = 0; i < magic.size(); ++i)
            if (static_cast<unsigned char>(c[i]) != magic[i])
                return false;
        return true;
    };
    return begins(s_plain) || begins(s_contentId);
}

void MRL_CharStreamable::operator>>(PLQOutputStream& out) const {
    PLQBase64OutputStream base64;
    PLQOutputStream* target = &out;
    if (m_isBase64 != 0) {
        base64.wrap(out);
        target = &base64;
    }
    for (const MRL_CharStreamable* piece = this; piece != nullptr; piece = piece->m_next) {
        if (piece->m_streamable != nullptr)
            *piece->m_streamable >> *target;
        else if (piece->m_data != nullptr)
            target->write(piece->m_data, std::strlen(piece->m_data));
    }
    if (m_isBase64 != 0)
        base64.unWrap(); // writes the last group
}
