#include "ZORCrypto/HBLZORCookie.h"

#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Clock.h"
#include "ZORCrypto/detail/KeyRing.h"
#include "ZORCrypto/detail/SignedText.h"

using mrl::detail::currentSecond;

HBLZORCookie::HBLZORCookie(const char* value)
    : m_value(value != nullptr ? value : "") {}

HBLZORCookie HBLZORCookie::fromXMLString(const std::string& xml, std::chrono::seconds lifetime) {
    if (lifetime.count() < 1)
        mrl::detail::refuse(eZORBadArgument, "the access cookie's lifetime is below one second: " +
                                                 std::to_string(lifetime.count()));
    const auto expiry = (currentSecond() + lifetime).time_since_epoch().count();
    return HBLZORCookie(mrl::detail::issueCookie(*mrl::detail::keysForWriting(), xml, expiry).c_str());
}

void HBLZORCookie::asXMLString(std::string& xml) const {
    asXMLString(xml, currentSecond());
}

void HBLZORCookie::asXMLString(std::string& xml, std::chrono::sys_seconds now) const {
    xml = mrl::detail::acceptCookie(*mrl::detail::keysForReading(), m_value, now.time_since_epoch().count());
}
