#include "Common/PLQEchoInputStream.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQOutputStream.h"

PLQEchoInputStream::PLQEchoInputStream(PLQInputStream& in, PLQOutputStream& echoTarget)
    : PLQFilterInputStream(in)
    , m_pEcho(&echoTarget) {}

PLQEchoInputStream::~PLQEchoInputStream() {
    try {
        if (m_pWrapped)
            PLQEchoInputStream::unWrap();
    } catch (...) { // documented: a destructor reports nothing
    }
}

int PLQEchoInputStream::read() {
    signed char byte = 0;
    return read(reinterpret_cast<char*>(&byte), 1) == 1 ? byte : -1;
}

std::size_t PLQEchoInputStream::read(char* buffer, std::size_t count) {
    requireWrapped();
    const std::size_t n = m_pWrapped->read(buffer, count);
    if (!isEnd(n))
        m_pEcho->write(buffer, n);
    return n;
}

std::size_t PLQEchoInputStream::read(HBLByteBuffer& buffer, std::size_t count) {
    buffer.reserve(count);
    const std::size_t n = read(buffer.str() + buffer.pcount(), count);
    if (!isEnd(n))
        buffer.setLength(buffer.pcount() + n);
    return n;
}

int PLQEchoInputStream::canUnread() {
    return 0;
}

void PLQEchoInputStream::unWrap() {
    requireWrapped();
    m_pEcho->flush();
    m_pWrapped = nullptr;
}

void PLQEchoInputStream::requireWrapped() const {
    if (!m_pWrapped) // one text for all operations; callers match it
        HBL_THROW(HBLIllegalStateError(0, "PLQEchoInputStream::unWrap"), "PLQEchoInputStream::unWrap");
}
