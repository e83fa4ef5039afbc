#include "Common/MRLPLQMemoryOutputStream.h"

#include "HBLCore/HBLDowncastSize.h"

MRLPLQMemoryOutputStream::MRLPLQMemoryOutputStream(int size)
    : m_buffer(1, HBLDowncastSize::size(size), 256) {}

MRLPLQMemoryOutputStream::~MRLPLQMemoryOutputStream() = default;

void MRLPLQMemoryOutputStream::write(const char* data, std::size_t size) {
    m_buffer.appendChars(data, size);
}

void MRLPLQMemoryOutputStream::flush() {}

void MRLPLQMemoryOutputStream::close() {}

int MRLPLQMemoryOutputStream::length() const {
    return HBLDowncastSize::int32(m_buffer.pcount());
}

char* MRLPLQMemoryOutputStream::bytes() {
    return m_buffer.str();
}

void MRLPLQMemoryOutputStream::reset() {
    m_buffer.reset();
}
