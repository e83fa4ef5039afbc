#pragma once

#include <openssl/crypto.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace mrl::detail {

/// Bytes of a fixed number that are wiped when they go.
template <std::size_t N>
class Secret {
public:
    Secret() = default;
    Secret(const Secret&) = default;
    Secret& operator=(const Secret&) = default;
    ~Secret() { OPENSSL_cleanse(m_bytes.data(), N); }

    static constexpr std::size_t size() noexcept { return N; }
    unsigned char* data() noexcept { return m_bytes.data(); }
    const unsigned char* data() const noexcept { return m_bytes.data(); }
    std::string_view view() const noexcept { return {reinterpret_cast<const char*>(m_bytes.data()), N}; }

private:
    std::array<unsigned char, N> m_bytes{};
};

/// Text that is wiped when it goes. What it is to hold in the end is reserved first: growing would leave a
/// copy behind.
class SecretText {
public:
    explicit SecretText(std::size_t capacity) { m_text.reserve(capacity); }
    explicit SecretText(std::string&& text) noexcept
        : m_text(std::move(text)) {}
    SecretText(SecretText&&) noexcept = default;
    SecretText& operator=(SecretText&&) = delete;
    ~SecretText() { OPENSSL_cleanse(m_text.data(), m_text.capacity()); }

    std::string& text() noexcept { return m_text; }
    const std::string& text() const noexcept { return m_text; }

private:
    std::string m_text;
};

using Key = Secret<32>;

} // namespace mrl::detail
