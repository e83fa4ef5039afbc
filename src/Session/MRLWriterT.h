#pragma once

#include "Session/MRLWriter.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQStreamError.h"

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>

/// Writes to a `T` of somebody else's, which has `write(data, size)`: a MRLDocIo, PLQOutputStream,
/// std::ostream or HBLFmFile. A target that keeps what failed to itself, as std::ostream does, is the one to
/// ask; one that only returns it makes write() throw.
template <class T>
class MRLWriterT : public MRLWriter {
public:
    explicit MRLWriterT(T& target)
        : m_target(target) {}

    /// @throws PLQStreamError when the target returns that it took less; what the target throws.
    void write(const char* data, std::size_t size) override {
        while (size > 0) {
            const std::size_t chunk = std::min(size, s_largestChunk);
            put(data, chunk);
            data += chunk;
            size -= chunk;
        }
    }

private:
    static constexpr std::size_t s_largestChunk = 4294967295; // targets count in 32 bits

    void put(const char* data, std::size_t size) {
        if constexpr (requires {
                          { m_target.write(data, size) } -> std::same_as<std::int64_t>;
                      }) {
            const std::int64_t taken = m_target.write(data, size);
            // 0 is what a target returns that packs the data.
            if (taken < 0 || (taken != 0 && taken != static_cast<std::int64_t>(size))) {
                HBL_THROW(
                    PLQStreamError(ePLQStreamFile, "The target of a document took less than all of it."),
                    "MRLWriterT::write");
            }
        } else {
            m_target.write(data, static_cast<std::ptrdiff_t>(size));
        }
    }

    T& m_target;
};
