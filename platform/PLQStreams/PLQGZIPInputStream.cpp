#include "PLQStreams/PLQGZIPInputStream.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQStreamError.h"

#include <algorithm>
#include <array>
#include <string>
#include <zlib.h>

namespace {

constexpr int s_gzipWindow = 15 + 16; // the largest window; 16 asks for the gzip format and no other

} // namespace

struct PLQGZIPInputStream::Inflater {
    enum class Place { beforeMember, inMember, atEnd };

    Inflater() {
        if (inflateInit2(&z, s_gzipWindow) != Z_OK)
            hblOutOfMemory(HBL_HERE, "PLQGZIPInputStream::read"); // the only way to fail with these
    }
    ~Inflater() { inflateEnd(&z); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    z_stream z{};
    Place place = Place::beforeMember;
    std::uint64_t received = 0; // packed bytes that came so far
    std::array<Bytef, 16384> packed;
};

PLQGZIPInputStream::PLQGZIPInputStream() = default;

PLQGZIPInputStream::PLQGZIPInputStream(PLQInputStream& in)
    : PLQFilterInputStream(in) {}

PLQGZIPInputStream::~PLQGZIPInputStream() = default;

void PLQGZIPInputStream::wrap(PLQInputStream& in) {
    PLQFilterInputStream::wrap(in);
    m_inflater.reset();
}

std::size_t PLQGZIPInputStream::read(char* buffer, std::size_t count) {
    HBL_ASSERT(m_pWrapped);
    if (count == 0)
        return 0;
    if (!m_inflater)
        m_inflater.reset(hblNew<Inflater>(HBL_HERE));
    using Place = Inflater::Place;
    Inflater& inflater = *m_inflater;
    while (inflater.place != Place::atEnd) {
        if (inflater.place == Place::beforeMember) {
            if (inflater.z.avail_in == 0 && !fill()) {
                inflater.place = Place::atEnd;
                break;
            }
            inflateReset(&inflater.z);
            inflater.place = Place::inMember;
        }
        if (const std::size_t made = inflateSome(buffer, count); made > 0)
            return made;
        if (inflater.place == Place::inMember && inflater.z.avail_in == 0 && !fill())
            fail("it ends early");
    }
    return endOfStream;
}

/// Gets more packed bytes.
/// @return false when there are none.
bool PLQGZIPInputStream::fill() {
    auto& packed = m_inflater->packed;
    const std::size_t got = m_pWrapped->read(reinterpret_cast<char*>(packed.data()), packed.size());
    if (isEnd(got))
        return false;
    m_inflater->received += got;
    m_inflater->z.next_in = packed.data();
    m_inflater->z.avail_in = static_cast<uInt>(got);
    return true;
}

/// Unpacks what fits and can be had without more input.
/// @return the number of bytes, possibly 0.
std::size_t PLQGZIPInputStream::inflateSome(char* buffer, std::size_t count) {
    z_stream& z = m_inflater->z;
    const auto room = static_cast<uInt>(std::min(count, std::size_t{1} << 30)); // zlib counts in 32 bits
    z.next_out = reinterpret_cast<Bytef*>(buffer);
    z.avail_out = room;
    const int result = inflate(&z, Z_NO_FLUSH);
    const std::size_t made = room - z.avail_out;
    if (result == Z_STREAM_END)
        m_inflater->place = Inflater::Place::beforeMember;
    else if (result == Z_MEM_ERROR)
        hblOutOfMemory(HBL_HERE, "PLQGZIPInputStream::read");
    else if (result != Z_OK && result != Z_BUF_ERROR && made == 0) // else zlib says it again next time
        fail(z.msg ? z.msg : "it is damaged");
    return made;
}

void PLQGZIPInputStream::fail(const char* reason) const {
    const std::uint64_t offset = m_inflater->received - m_inflater->z.avail_in;
    HBL_THROW(PLQStreamError(ePLQStreamData, std::string("This is not sound gzip data: ") + reason +
                                                 " at offset " + std::to_string(offset) + "."),
              "PLQGZIPInputStream::read");
}
