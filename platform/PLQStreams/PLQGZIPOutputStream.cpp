#include "PLQStreams/PLQGZIPOutputStream.h"

#include "HBLCore/HBLFailure.h"

#include <algorithm>
#include <array>
#include <exception>
#define ZLIB_CONST // input is only read
#include <zlib.h>

namespace {

constexpr int s_gzipWindow = 15 + 16; // the largest window; 16 asks for the gzip format

} // namespace

struct PLQGZIPOutputStream::Deflater {
    Deflater() {
        if (deflateInit2(&z, Z_DEFAULT_COMPRESSION, Z_DEFLATED, s_gzipWindow, 8, Z_DEFAULT_STRATEGY) != Z_OK)
            hblOutOfMemory(HBL_HERE, "PLQGZIPOutputStream::write"); // the only way to fail with these
    }
    ~Deflater() { deflateEnd(&z); }
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    z_stream z{};
    std::array<Bytef, 16384> packed;
};

PLQGZIPOutputStream::PLQGZIPOutputStream()
    : m_exceptionsAtBirth(std::uncaught_exceptions()) {}

PLQGZIPOutputStream::PLQGZIPOutputStream(PLQOutputStream& downstream)
    : PLQFilterOutputStream(downstream)
    , m_exceptionsAtBirth(std::uncaught_exceptions()) {}

PLQGZIPOutputStream::~PLQGZIPOutputStream() {
    if (std::uncaught_exceptions() > m_exceptionsAtBirth)
        return;
    try {
        finish();
    } catch (...) { // documented: only an explicit unWrap() or close() reports
    }
}

void PLQGZIPOutputStream::write(const char* data, std::size_t length) {
    HBL_ASSERT(p_downstream);
    if (m_finished)
        HBL_THROW(HBLIllegalStateError(0, "The gzip data is closed, or was broken by a failure."),
                  "PLQGZIPOutputStream::write");
    if (length == 0)
        return;
    if (!m_deflater)
        m_deflater.reset(hblNew<Deflater>(HBL_HERE));
    z_stream& z = m_deflater->z;
    while (length > 0) {
        const std::size_t piece = std::min(length, std::size_t{1} << 30); // zlib counts in 32 bits
        z.next_in = reinterpret_cast<const Bytef*>(data);
        z.avail_in = static_cast<uInt>(piece);
        deflateAll(Z_NO_FLUSH);
        data += piece;
        length -= piece;
    }
}

void PLQGZIPOutputStream::close() {
    finish();
    PLQFilterOutputStream::close();
}

void PLQGZIPOutputStream::wrap(PLQOutputStream& downstream) {
    finish();
    m_finished = false;
    PLQFilterOutputStream::wrap(downstream);
}

void PLQGZIPOutputStream::unWrap() {
    finish();
    m_finished = false;
    PLQFilterOutputStream::unWrap();
}

/// Packs what zlib was given and writes what comes out.
void PLQGZIPOutputStream::deflateAll(int flush) {
    z_stream& z = m_deflater->z;
    auto& packed = m_deflater->packed;
    do {
        z.next_out = packed.data();
        z.avail_out = static_cast<uInt>(packed.size());
        deflate(&z, flush); // cannot fail: the stream is sound, and there is always room
        const std::size_t made = packed.size() - z.avail_out;
        if (made == 0)
            continue;
        try {
            p_downstream->write(reinterpret_cast<const char*>(packed.data()), made);
        } catch (...) { // the packed data has a hole: nothing may be added that makes it look whole
            m_deflater.reset();
            m_finished = true;
            throw;
        }
    } while (z.avail_out == 0);
}

void PLQGZIPOutputStream::finish() {
    if (!m_deflater)
        return;
    z_stream& z = m_deflater->z;
    z.next_in = nullptr;
    z.avail_in = 0;
    deflateAll(Z_FINISH);
    m_deflater.reset();
    m_finished = true;
}
