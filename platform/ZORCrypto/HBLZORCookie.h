#pragma once

#include "HBLCore/MRLExport.h"

#include <chrono>
#include <string>

/// The access block of a user as it travels in a cookie: its XML form, readable and signed, with a time at
/// which it ends. Only an installation that shares the key store makes cookies that are accepted.
class MRL_EXPORT HBLZORCookie {
public:
    /// @param value the value of the cookie, copied; null is empty. Nothing is checked here.
    explicit HBLZORCookie(const char* value);

    /// The cookie that carries `xml`, signed with the installation's newest key, good for `lifetime` from
    /// now.
    /// @throws ZORError with eZORBadArgument for a lifetime below one second, or when there is no key.
    static HBLZORCookie fromXMLString(const std::string& xml, std::chrono::seconds lifetime);

    /// The value, in characters that need no quoting in a cookie.
    const std::string& getValue() const noexcept { return m_value; }

    /// Sets `xml` to the XML form, unless the cookie is refused; `xml` then stays.
    /// @throws ZORError, whose text says why: eZORRefused for what is forged, changed or no cookie at all,
    /// eZORExpired for an old one, eZORUnknownKey and eZORUnknownVersion.
    void asXMLString(std::string& xml) const;
    /// The same at a time of the caller's.
    void asXMLString(std::string& xml, std::chrono::sys_seconds now) const;

private:
    std::string m_value;
};
