#include "config/ConfigFile.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLFmDir.h"

namespace mrl::tool {

ConfigFile configFile(const std::string& given) {
    if (!given.empty()) {
        return {given, "named on the command line"};
    }
    const auto [path, isFromEnvironment] = HBLConfigurationFactory::getDefaultLocation();
    if (isFromEnvironment) {
        return {path, std::string("named by ") + HBLConfigurationFactory::s_locationVariable};
    }
    return {path, "the default place", HBLFmDir::exists(path.c_str(), 0) != 0};
}

} // namespace mrl::tool
