#include "ZORCrypto/ZORTrustedReader.h"

#include "HBLCore/HBLThreadGuard.h"
#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Clock.h"
#include "ZORCrypto/detail/KeyRing.h"
#include "ZORCrypto/detail/SealedDocument.h"
#include "ZORCrypto/detail/Text.h"

#include <algorithm>

using mrl::detail::currentSecond;
using mrl::detail::Purpose;
using mrl::detail::refuse;
using mrl::detail::SealedHeader;

ZORTrustedReader::ZORTrustedReader(std::chrono::seconds window)
    : ZORTrustedReader(window, currentSecond()) {}

ZORTrustedReader::ZORTrustedReader(std::chrono::seconds window, std::chrono::sys_seconds started)
    : m_window(window.count())
    , m_started(started.time_since_epoch().count()) {}

bool ZORTrustedReader::isProtected(std::string_view body) noexcept {
    return mrl::detail::isArmoured(body);
}

ZORTrustedReader::Request ZORTrustedReader::open(std::string_view body) {
    return open(body, currentSecond());
}

ZORTrustedReader::Request ZORTrustedReader::open(std::string_view body, std::chrono::sys_seconds time) {
    const std::string document = mrl::detail::unarmour(body);
    Request request;
    const SealedHeader header = mrl::detail::unsealDocument(
        *mrl::detail::keysForReading(), Purpose::trustedRequest, {}, document, request.text);
    request.service = header.service;

    const std::int64_t now = time.time_since_epoch().count();
    const std::string when = "the trusted request of " + mrl::detail::toUtcText(header.made);
    if (header.made < now - m_window || header.made > now + m_window)
        refuse(eZORExpired, when + " is not of this time; are the clocks of both machines right?");
    if (header.made < m_started)
        refuse(eZORExpired, when + " is older than its receiver; send it again");
    Seen seen{header.made, {}};
    std::ranges::copy(header.salt, seen.second.begin());
    const HBLThreadGuard guard(m_lock);
    std::erase_if(m_seen, [&](const Seen& old) { return old.first < now - m_window; });
    if (!m_seen.insert(seen).second)
        refuse(eZORExpired, when + " was received before");
    return request;
}
