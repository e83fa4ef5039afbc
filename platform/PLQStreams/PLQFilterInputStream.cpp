#include "PLQStreams/PLQFilterInputStream.h"

#include "HBLCore/HBLFailure.h"

PLQFilterInputStream::PLQFilterInputStream(PLQInputStream& in)
    : m_pWrapped(&in) {}

PLQFilterInputStream::~PLQFilterInputStream() = default;

std::size_t PLQFilterInputStream::read(char* buffer, std::size_t count) {
    HBL_ASSERT(m_pWrapped);
    return m_pWrapped->read(buffer, count);
}

void PLQFilterInputStream::close() {
    if (m_pWrapped)
        m_pWrapped->close();
}

int PLQFilterInputStream::canTimeout() {
    return m_pWrapped ? m_pWrapped->canTimeout() : PLQInputStream::canTimeout();
}

void PLQFilterInputStream::setTimeout(int milliseconds) {
    m_pWrapped ? m_pWrapped->setTimeout(milliseconds) : PLQInputStream::setTimeout(milliseconds);
}

int PLQFilterInputStream::getTimeout() {
    return m_pWrapped ? m_pWrapped->getTimeout() : PLQInputStream::getTimeout();
}

int PLQFilterInputStream::canCancel() {
    return m_pWrapped ? m_pWrapped->canCancel() : PLQInputStream::canCancel();
}

void PLQFilterInputStream::setCancel(int armed) {
    m_pWrapped ? m_pWrapped->setCancel(armed) : PLQInputStream::setCancel(armed);
}

int PLQFilterInputStream::getCancel() {
    return m_pWrapped ? m_pWrapped->getCancel() : PLQInputStream::getCancel();
}

void PLQFilterInputStream::cancel() {
    m_pWrapped ? m_pWrapped->cancel() : PLQInputStream::cancel();
}

void PLQFilterInputStream::wrap(PLQInputStream& in) {
    m_pWrapped = &in;
}

void PLQFilterInputStream::unWrap() {
    m_pWrapped = nullptr;
}
