#pragma once

#include "TavelTK/detail/Wire.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace mrl::detail {

/// The bytes of a reply from the wire, through one small buffer. Large reads go past it.
class ReplyInput {
public:
    explicit ReplyInput(Wire& wire)
        : m_wire(wire) {}

    Wire& wire() { return m_wire; }

    /// Up to `size` bytes, at least one; 0 when the peer has ended the connection.
    std::size_t read(char* buffer, std::size_t size);

    /// One line without its CRLF (or bare LF). Its bytes, the end included, are taken off `budget`.
    /// @throws TavelTKException replyTooLarge when the budget is used up; connectionBroke when the
    ///         connection ends before the line does.
    std::string readLine(std::int64_t& budget, std::string_view what);

    /// Whether the next bytes come within that time.
    bool comesWithin(milliseconds time);

    /// Whether bytes are left over that belong to no reply.
    bool hasLeftover() const { return m_begin != m_end; }

private:
    bool fill();

    Wire& m_wire;
    std::array<char, 16384> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

} // namespace mrl::detail
