#include "HBLCore/HBLZORCookie.h"

#include "HBLCore/HBLBase64.h"
#include "HBLCore/HBLFailure.h"

#include <algorithm>

HBLZORCookie::HBLZORCookie(const char* value)
    : m_value(value ? value : "") {}

HBLZORCookie HBLZORCookie::fromXMLString(const std::string& xml) {
    std::string value(HBLBase64EncodedSize(xml.size(), 0), '\0');
    HBLBase64Encode(xml.data(), xml.size(), value.data(), 0);
    value.resize(std::min(value.find('='), value.size()));
    std::replace(value.begin(), value.end(), '+', '-');
    std::replace(value.begin(), value.end(), '/', '_');
    return HBLZORCookie(value.c_str());
}

void HBLZORCookie::asXMLString(std::string& xml) const {
    std::string standard = m_value;
    std::replace(standard.begin(), standard.end(), '-', '+');
    std::replace(standard.begin(), standard.end(), '_', '/');
    standard.resize((standard.size() + 3) / 4 * 4, '=');
    std::string decoded(standard.size(), '\0');
    std::size_t size = 0;
    if (HBLBase64Decode(standard.c_str(), decoded.data(), &size) != 0)
        HBL_THROW(HBLIllegalStateError(0, "the access cookie is not valid Base64"),
                  "HBLZORCookie::asXMLString");
    decoded.resize(size);
    xml = std::move(decoded);
}
