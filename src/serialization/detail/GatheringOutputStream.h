#pragma once

#include "PLQStreams/PLQOutputStream.h"

#include <array>
#include <cstring>
#include <string_view>

namespace mrl::detail {

/// Gathers the writer's many small pieces, so that the stream below sees few large ones in the same
/// order. finish() must be called at the end. What is held when a failure passes is handed on all the
/// same, unless the failure is the stream's own: what was written stays written.
class GatheringOutputStream final : public PLQOutputStream {
public:
    explicit GatheringOutputStream(PLQOutputStream& downstream)
        : m_downstream(downstream) {}
    ~GatheringOutputStream() override;

    void put(char c) {
        if (m_size == m_buffer.size()) {
            finish();
        }
        m_buffer[m_size++] = c;
    }
    void put(std::string_view piece) { write(piece.data(), piece.size()); }
    void putTabs(int count) {
        constexpr std::string_view tabs = "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
        for (; count > static_cast<int>(tabs.size()); count -= static_cast<int>(tabs.size())) {
            put(tabs);
        }
        if (count > 0) {
            put(tabs.substr(0, static_cast<std::size_t>(count)));
        }
    }

    void write(const char* data, std::size_t length) override {
        if (length <= m_buffer.size() - m_size) {
            if (length != 0) {
                std::memcpy(m_buffer.data() + m_size, data, length);
                m_size += length;
            }
            return;
        }
        writeLarge(data, length);
    }
    void flush() override;

    /// Hands on what is held.
    void finish();

private:
    void writeLarge(const char* data, std::size_t length);

    PLQOutputStream& m_downstream;
    std::size_t m_size = 0;
    std::array<char, 16384> m_buffer; // filled from the front, not initialised
};

} // namespace mrl::detail
