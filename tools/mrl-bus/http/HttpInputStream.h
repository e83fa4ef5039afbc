#pragma once

#include "PLQStreams/PLQInputStream.h"

#include <chrono>
#include <cstdint>
#include <istream>

namespace mrl::bus {

/// The body of a request, as it arrives, up to a size and a time. Beyond either the data ends early, and
/// `exceeded` tells.
class HttpInputStream : public PLQInputStream {
public:
    HttpInputStream(std::istream& body, std::uint64_t maxBytes,
                    std::chrono::steady_clock::time_point deadline);

    using PLQInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override;

    bool exceeded() const { return m_exceeded; }

    /// Reads on to the end, at most `maxBytes` more.
    /// @return whether the end was reached, so that the connection can carry another request.
    bool drain(std::uint64_t maxBytes);

private:
    std::istream& m_body; // borrowed
    std::uint64_t m_left;
    std::chrono::steady_clock::time_point m_deadline;
    bool m_exceeded = false;
};

} // namespace mrl::bus
