#pragma once

#include "HBLCore/MRLExport.h"

#include <string>

/// The access block of a user as it travels in a cookie: its XML form in Base64 with the alphabet for
/// URLs ("-" and "_", no padding), which needs no quoting in a cookie.
class MRL_EXPORT HBLZORCookie {
public:
    /// @param value the value of the cookie, copied; the standard alphabet and padding are taken as well.
    explicit HBLZORCookie(const char* value);

    /// The cookie that carries `xml`.
    static HBLZORCookie fromXMLString(const std::string& xml);

    const std::string& getValue() const noexcept { return m_value; }

    /// Sets `xml` to the XML form. What it says is not checked: a cookie comes from outside.
    /// @throws HBLIllegalStateError when the value is no Base64.
    void asXMLString(std::string& xml) const;

private:
    std::string m_value;
};
