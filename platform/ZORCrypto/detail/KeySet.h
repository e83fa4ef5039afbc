#pragma once

#include "ZORCrypto/detail/Secret.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

/// The public name of a master key: eight bytes made from it.
constexpr std::size_t c_keyIdSize = 8;

struct MasterKey {
    std::string id; // c_keyIdSize bytes
    std::int64_t created = 0;
    Key key;
};

/// The master keys of an installation, oldest first. The newest one writes, all of them read. As a file:
///
///     mrl key store 1
///     key 0123456789abcdef 2026-11-21T06:00:00Z <the key, 64 hexadecimal digits>
///     sum <SHA-256 of everything before this line, 64 hexadecimal digits>
class KeySet {
public:
    /// A set with one new key.
    static KeySet create(std::int64_t now);
    /// @throws ZORError with eZORKeyStore or eZORUnknownVersion and what is wrong in which line.
    static KeySet parse(std::string_view text);

    void addNewKey(std::int64_t now);
    /// The file's text.
    SecretText format() const;

    const MasterKey& newest() const noexcept { return m_keys.back(); }
    /// Null for an id that is not there.
    const MasterKey* find(std::string_view id) const noexcept;
    const std::vector<MasterKey>& all() const noexcept { return m_keys; }

private:
    std::vector<MasterKey> m_keys;
};

} // namespace mrl::detail
