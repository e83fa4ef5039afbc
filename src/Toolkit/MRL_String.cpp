#include "Toolkit/MRL_String.h"

#include "HBLCore/HBLFailure.h"

namespace {

// The same bytes in every locale.
bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

} // namespace

MRL_String::MRL_String()
    : HBLByteBuffer(1, 128, 0) {}

MRL_String::~MRL_String() = default;

void MRL_String::trim() {
    if (empty())
        return;
    HBL_ASSERT(m_pBuffer);
    std::size_t leading = 0;
    while (leading < pcount() && isSpace(m_pBuffer[leading]))
        ++leading;
    if (leading == pcount()) {
        reset();
        return;
    }
    chop(leading);
    std::size_t length = pcount();
    while (isSpace(m_pBuffer[length - 1]))
        --length;
    setLength(length);
}
