#include "HBLIDOM/detail/DomPlace.h"

#include <cstdint>

namespace mrl::detail {

namespace {

constexpr const XMLCh* KEY = u"mrl.place";
constexpr unsigned LINE_SHIFT = 32;

static_assert(sizeof(void*) == sizeof(std::uint64_t),
              "a line and a column fit into the pointer of user data");

} // namespace

void setPlace(xercesc::DOMNode& node, int line, int column) {
    const std::uint64_t packed =
        (static_cast<std::uint64_t>(line) << LINE_SHIFT) | static_cast<std::uint32_t>(column);
    // A number, never followed. NOLINTNEXTLINE(performance-no-int-to-ptr)
    node.setUserData(KEY, reinterpret_cast<void*>(packed), nullptr);
}

DomPlace placeOf(const xercesc::DOMNode& node) {
    const auto packed = reinterpret_cast<std::uint64_t>(node.getUserData(KEY));
    return {static_cast<int>(packed >> LINE_SHIFT), static_cast<int>(packed & 0xFFFFFFFF)};
}

} // namespace mrl::detail
