#include "HBLCFGAPI/HBLConfigurationError.h"

HBLConfigurationError::HBLConfigurationError(const HBLConfigurationPlace& place, const std::string& words)
    : HBLErrorOf(1, (place.toString() + ": " + words).c_str(), "bad configuration")
    , m_line(place.line)
    , m_column(place.column) {}

const char* HBLConfigurationError::getErrorCodePrefix() const {
    return "HBL-CFG";
}
