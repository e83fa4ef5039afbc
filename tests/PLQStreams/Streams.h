#pragma once

#include "support/ChunkedStream.h"

#include "HBLCore/HBLThrowable.h"
#include "PLQStreams/PLQInputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "PLQStreams/PLQStreamError.h"

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

/// The sizes in which every stream is fed.
inline constexpr std::size_t s_chunks[] = {1, 2, 3, 7, 4096};

using ChunkedInput = mrl::test::ChunkedStream;

/// Takes `room` bytes, then fails.
class FullOutput : public PLQOutputStream {
public:
    explicit FullOutput(std::size_t room)
        : m_room(room) {}
    void write(const char* data, std::size_t length) override {
        if (length > m_room)
            throw PLQStreamError(ePLQStreamFile, "full");
        taken.append(data, length);
        m_room -= length;
    }
    std::string taken;

private:
    std::size_t m_room;
};

inline void writeInChunks(PLQOutputStream& out, std::string_view data, std::size_t chunk) {
    for (; !data.empty(); data.remove_prefix(std::min(chunk, data.size())))
        out.write(data.data(), std::min(chunk, data.size()));
}

inline std::string readInChunks(PLQInputStream& in, std::size_t chunk) {
    std::string all;
    std::string piece(chunk, '\0');
    for (std::size_t got = 0; !PLQInputStream::isEnd(got = in.read(piece.data(), chunk));)
        all.append(piece, 0, got);
    return all;
}

inline std::string contentOf(const PLQMemoryOutputStream& memory) {
    return {memory.bytes(), memory.length()};
}

/// The same bytes in every run: incompressible, with every value of a byte.
inline std::string noise(std::size_t length) {
    std::mt19937 random(42);
    std::string bytes(length, '\0');
    std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
    return bytes;
}

/// The message of what `step` throws, or "" when it throws nothing.
template <class F>
std::string failureOf(F&& step) {
    try {
        step();
    } catch (const HBLThrowable& e) {
        return e.getMessage();
    }
    return "";
}
