#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace mrl::detail {

/// Bytes that wait until it is known how many there are. They stand in blocks, so that none is ever copied
/// into a larger room, and hardly more is taken than there are bytes.
class HeldBytes {
public:
    void append(std::string_view bytes);
    std::size_t size() const { return m_size; }

    /// Hands the blocks to `take` as string_views, in their order; each is gone when `take` returns.
    template <class Take>
    void drain(Take take) {
        for (; !m_blocks.empty(); m_blocks.pop_front()) {
            m_size -= m_blocks.front().size();
            take(std::string_view(m_blocks.front()));
        }
    }

private:
    std::deque<std::string> m_blocks;
    std::size_t m_size = 0;
};

} // namespace mrl::detail
