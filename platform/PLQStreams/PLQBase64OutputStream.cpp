#include "PLQStreams/PLQBase64OutputStream.h"

#include "HBLCore/HBLFailure.h"

#include <openssl/evp.h>

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t s_pieceSize = 3072; // becomes 4 KiB of Base64

} // namespace

PLQBase64OutputStream::PLQBase64OutputStream(PLQOutputStream& downstream)
    : PLQFilterOutputStream(downstream) {}

PLQBase64OutputStream::~PLQBase64OutputStream() {
    try {
        finish();
    } catch (...) { // documented: only an explicit unWrap() or close() reports
    }
}

void PLQBase64OutputStream::write(const char* data, std::size_t length) {
    HBL_ASSERT(p_downstream);
    if (m_heldLength > 0) {
        const std::size_t taken = std::min(length, m_held.size() - m_heldLength);
        std::copy_n(data, taken, m_held.begin() + m_heldLength);
        m_heldLength += taken;
        data += taken;
        length -= taken;
        if (m_heldLength < m_held.size())
            return;
        m_heldLength = 0;
        encode(m_held.data(), m_held.size());
    }
    for (; length >= 3;) {
        const std::size_t piece = std::min(length - length % 3, s_pieceSize);
        encode(data, piece);
        data += piece;
        length -= piece;
    }
    std::copy_n(data, length, m_held.begin());
    m_heldLength = length;
}

void PLQBase64OutputStream::close() {
    finish();
    PLQFilterOutputStream::close();
}

void PLQBase64OutputStream::wrap(PLQOutputStream& downstream) {
    finish();
    PLQFilterOutputStream::wrap(downstream);
}

void PLQBase64OutputStream::unWrap() {
    finish();
    PLQFilterOutputStream::unWrap();
}

void PLQBase64OutputStream::encode(const char* data, std::size_t length) {
    std::array<unsigned char, s_pieceSize / 3 * 4 + 1> text; // with the NUL that is appended
    const int textLength =
        EVP_EncodeBlock(text.data(), reinterpret_cast<const unsigned char*>(data), static_cast<int>(length));
    p_downstream->write(reinterpret_cast<const char*>(text.data()), static_cast<std::size_t>(textLength));
}

void PLQBase64OutputStream::finish() {
    if (p_downstream && m_heldLength > 0)
        encode(m_held.data(), std::exchange(m_heldLength, 0)); // pads
}
