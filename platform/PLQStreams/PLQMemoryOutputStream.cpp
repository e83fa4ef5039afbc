#include "PLQStreams/PLQMemoryOutputStream.h"

#include <algorithm>

PLQMemoryOutputStream::PLQMemoryOutputStream(std::size_t initialSize, std::size_t growth)
    : m_buffer(1, std::max(initialSize, growth), 0) {} // doubling keeps large documents linear

PLQMemoryOutputStream::~PLQMemoryOutputStream() = default;

void PLQMemoryOutputStream::write(const char* data, std::size_t length) {
    m_buffer.appendChars(data, length);
}

std::size_t PLQMemoryOutputStream::length() const {
    return m_buffer.pcount();
}

const char* PLQMemoryOutputStream::bytes() const {
    return m_buffer.str();
}

void PLQMemoryOutputStream::reset() {
    m_buffer.reset();
}
