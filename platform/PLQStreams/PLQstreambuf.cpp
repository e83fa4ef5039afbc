#include "PLQStreams/PLQstreambuf.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQInputStream.h"
#include "PLQStreams/PLQOutputStream.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t s_bufferSize = 4096;

} // namespace

PLQstreambuf::PLQstreambuf() = default;

PLQstreambuf::PLQstreambuf(PLQOutputStream& out)
    : m_out(&out) {}

PLQstreambuf::PLQstreambuf(PLQInputStream& in)
    : m_in(&in) {}

PLQstreambuf::PLQstreambuf(PLQInputStream& in, PLQOutputStream& out)
    : m_in(&in)
    , m_out(&out) {}

PLQstreambuf::~PLQstreambuf() {
    try {
        drain();
    } catch (...) { // documented: only an explicit flush reports
    }
}

void PLQstreambuf::wrap(PLQOutputStream& out) {
    drain();
    m_out = &out;
}

void PLQstreambuf::wrap(PLQInputStream& in) {
    setg(nullptr, nullptr, nullptr);
    m_in = &in;
}

void PLQstreambuf::unWrap() {
    drain();
    setg(nullptr, nullptr, nullptr);
    m_out = nullptr;
    m_in = nullptr;
}

PLQstreambuf::int_type PLQstreambuf::underflow() {
    if (gptr() < egptr())
        return traits_type::to_int_type(*gptr());
    if (!m_in)
        return traits_type::eof();
    if (!m_inBuffer)
        m_inBuffer.reset(hblNewChars(HBL_HERE, s_bufferSize));
    setg(nullptr, nullptr, nullptr); // stays so when read() throws
    const std::size_t got = m_in->read(m_inBuffer.get(), s_bufferSize);
    if (PLQInputStream::isEnd(got))
        return traits_type::eof();
    setg(m_inBuffer.get(), m_inBuffer.get(), m_inBuffer.get() + got);
    return traits_type::to_int_type(*gptr());
}

std::streamsize PLQstreambuf::xsgetn(char* buffer, std::streamsize count) {
    std::streamsize total = std::min(count, static_cast<std::streamsize>(egptr() - gptr()));
    if (total > 0) {
        std::memcpy(buffer, gptr(), static_cast<std::size_t>(total));
        setg(eback(), gptr() + total, egptr());
    }
    // What is larger than the buffer goes around it.
    while (m_in && count - total >= static_cast<std::streamsize>(s_bufferSize)) {
        const std::size_t got = m_in->read(buffer + total, static_cast<std::size_t>(count - total));
        if (PLQInputStream::isEnd(got))
            return total;
        total += static_cast<std::streamsize>(got);
    }
    return total < count ? total + std::streambuf::xsgetn(buffer + total, count - total) : total;
}

PLQstreambuf::int_type PLQstreambuf::overflow(int_type c) {
    if (!m_out)
        return traits_type::eof();
    if (!m_outBuffer)
        m_outBuffer.reset(hblNewChars(HBL_HERE, s_bufferSize));
    drain();
    setp(m_outBuffer.get(), m_outBuffer.get() + s_bufferSize);
    if (!traits_type::eq_int_type(c, traits_type::eof()))
        sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
}

std::streamsize PLQstreambuf::xsputn(const char* data, std::streamsize length) {
    if (!m_out || length < static_cast<std::streamsize>(s_bufferSize))
        return std::streambuf::xsputn(data, length);
    drain(); // what is larger than the buffer goes around it
    m_out->write(data, static_cast<std::size_t>(length));
    return length;
}

int PLQstreambuf::sync() {
    if (m_out) {
        drain();
        m_out->flush();
    }
    return 0;
}

/// Writes what is buffered. It counts as written even when that fails: a second try would repeat what
/// the stream may have taken.
void PLQstreambuf::drain() {
    const char* const data = pbase();
    const auto length = static_cast<std::size_t>(pptr() - pbase());
    setp(pbase(), epptr());
    if (length > 0)
        m_out->write(data, length);
}
