#include "HBLCFGAPI/HBLConfigurationPlace.h"

std::string HBLConfigurationPlace::toString() const {
    return line == 0 ? source : source + ":" + std::to_string(line) + ":" + std::to_string(column);
}
