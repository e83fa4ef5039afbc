#include "TavelTK/detail/Inflater.h"

#include "HBLCore/HBLFailure.h"

#include <algorithm>
#include <array>
#include <climits>
#include <new>
#include <zlib.h>

namespace mrl::detail {

namespace {

constexpr std::int64_t s_freeBytes = 1048576; // small texts may pack as well as they like
constexpr int s_gzipOnly = 15 + 16;

} // namespace

struct Inflater::State {
    State() {
        if (::inflateInit2(&stream, s_gzipOnly) != Z_OK)
            throw std::bad_alloc();
    }
    ~State() { ::inflateEnd(&stream); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    z_stream stream{};
    std::array<unsigned char, 32768> packed;
    std::int64_t in = 0;
    std::int64_t out = 0;
    bool isWithinMember = false;
    bool isOver = false;
};

Inflater::Inflater(std::unique_ptr<ByteSource> raw, std::int64_t maxBytes, std::int64_t maxRatio,
                   RefuseCoding refuse)
    : m_raw(std::move(raw))
    , m_maxBytes(maxBytes)
    , m_maxRatio(maxRatio)
    , m_refuse(std::move(refuse))
    , m_state(std::make_unique<State>()) {}

Inflater::~Inflater() = default;

void Inflater::refuse(const std::string& cause, bool isTooLarge) const {
    m_refuse(isTooLarge, cause);
    hblAssertFailed("HBL_ASSERT(refused);", HBL_HERE);
}

/// @return false at the end of the packed bytes
bool Inflater::fill() {
    State& state = *m_state;
    if (state.stream.avail_in != 0)
        return true;
    const std::size_t count = m_raw->read(reinterpret_cast<char*>(state.packed.data()), state.packed.size());
    state.stream.next_in = state.packed.data();
    state.stream.avail_in = static_cast<uInt>(count);
    state.in += static_cast<std::int64_t>(count);
    return count != 0;
}

void Inflater::checkSize() const {
    const State& state = *m_state;
    if (m_maxBytes != 0 && state.out > m_maxBytes)
        refuse("it unpacks to more than " + std::to_string(m_maxBytes) + " bytes (max-inflated-bytes)", true);
    if (m_maxRatio != 0 && state.out > s_freeBytes && state.out / m_maxRatio > state.in)
        refuse("it unpacks to more than " + std::to_string(m_maxRatio) +
                   " times its size (max-inflate-ratio)",
               true);
}

std::size_t Inflater::read(char* buffer, std::size_t size) {
    State& state = *m_state;
    z_stream& stream = state.stream;
    stream.next_out = reinterpret_cast<Bytef*>(buffer);
    const auto room = static_cast<uInt>(std::min<std::size_t>(size, INT_MAX));
    stream.avail_out = room;
    while (!state.isOver && stream.avail_out == room) {
        if (!fill()) {
            if (state.isWithinMember)
                refuse("its gzip data ends too early");
            state.isOver = true;
            break;
        }
        state.isWithinMember = true;
        const int result = ::inflate(&stream, Z_NO_FLUSH);
        if (result == Z_STREAM_END) {
            state.isWithinMember = false;
            ::inflateReset(&stream); // another member may follow
        } else if (result == Z_MEM_ERROR) {
            throw std::bad_alloc();
        } else if (result != Z_OK && result != Z_BUF_ERROR) {
            refuse(std::string("its gzip data is damaged (") + (stream.msg ? stream.msg : "unknown") + ")");
        }
    }
    const std::size_t made = room - stream.avail_out;
    state.out += static_cast<std::int64_t>(made);
    checkSize();
    return made;
}

} // namespace mrl::detail
