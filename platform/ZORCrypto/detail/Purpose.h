#pragma once

#include "ZORCrypto/detail/KeySet.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace mrl::detail {

/// What a key is for. Encrypted documents hold the number; it never changes its meaning.
enum class Purpose : std::uint8_t {
    data = 1,
    trustedRequest = 2,
    credential = 3,
    specification = 4,
    secureState = 5,
};

/// The key of a service for a purpose, made from a master key: what one service or purpose gives away opens
/// nothing of another.
Key purposeKey(const MasterKey& master, Purpose purpose, std::string_view service);

/// @throws ZORError with eZORBadArgument for a service id that documents cannot hold: more than 255 bytes, or
/// a control character in it.
void checkService(std::string_view service);

/// The key with that id.
/// @throws ZORError with eZORUnknownKey.
const MasterKey& masterKey(const KeySet& keys, std::string_view id, const char* what);

[[noreturn]] void refuse(int status, const std::string& why);

} // namespace mrl::detail
