#include "TavelTK/detail/HeldBytes.h"

#include <algorithm>

namespace mrl::detail {

namespace {

constexpr std::size_t s_firstBlock = 4096;
constexpr std::size_t s_largestBlock = 65536;

} // namespace

void HeldBytes::append(std::string_view bytes) {
    while (!bytes.empty()) {
        if (m_blocks.empty() || m_blocks.back().size() == m_blocks.back().capacity())
            m_blocks.emplace_back().reserve(std::clamp(m_size, s_firstBlock, s_largestBlock));
        std::string& block = m_blocks.back();
        const std::size_t count = std::min(bytes.size(), block.capacity() - block.size());
        block.append(bytes.substr(0, count));
        bytes.remove_prefix(count);
        m_size += count;
    }
}

} // namespace mrl::detail
