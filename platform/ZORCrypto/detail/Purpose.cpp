#include "ZORCrypto/detail/Purpose.h"

#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Primitives.h"
#include "ZORCrypto/detail/Text.h"

#include <algorithm>

namespace mrl::detail {

namespace {

constexpr std::size_t c_longestService = 255;

std::string_view nameOf(Purpose purpose) noexcept {
    switch (purpose) {
    case Purpose::data: return "data";
    case Purpose::trustedRequest: return "trusted";
    case Purpose::credential: return "credential";
    case Purpose::specification: return "specification";
    case Purpose::secureState: return "state";
    }
    return "";
}

} // namespace

Key purposeKey(const MasterKey& master, Purpose purpose, std::string_view service) {
    std::string info = "mrl/1/";
    info.append(nameOf(purpose)).append("/").append(service);
    return deriveKey(master.key, info);
}

void checkService(std::string_view service) {
    if (service.size() > c_longestService)
        refuse(eZORBadArgument, "the service id is longer than 255 bytes: " + std::to_string(service.size()));
    if (std::ranges::any_of(service, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7f; }))
        refuse(eZORBadArgument, "the service id holds a control character");
}

const MasterKey& masterKey(const KeySet& keys, std::string_view id, const char* what) {
    const MasterKey* const master = keys.find(id);
    if (master == nullptr)
        refuse(eZORUnknownKey, std::string(what) + " was made with key " + toHex(id) +
                                   ", which this installation's key store does not hold");
    return *master;
}

void refuse(int status, const std::string& why) {
    HBL_THROW(ZORError(static_cast<ZORStatus>(status), why), "ZORCrypto");
}

} // namespace mrl::detail
