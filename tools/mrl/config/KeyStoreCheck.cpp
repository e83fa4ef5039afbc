#include "config/KeyStoreCheck.h"

#include "HBLCore/HBLFmDir.h"
#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/ZORKeyStore.h"

#include <algorithm>
#include <filesystem>
#include <string>

namespace mrl::tool {

std::vector<HBLConfigurationFinding> examinedKeyStore(const HBLConfigurationDocument* document) {
    ZORKeyStore::setLocationSource(nullptr);
    std::string path = ZORKeyStore::location(); // the environment's, or the default
    HBLConfigurationPlace place{path};
    const char* const named = std::getenv(ZORKeyStore::s_locationVariable);
    if (document != nullptr && (named == nullptr || *named == '\0')) {
        const auto& properties = document->getProperties();
        const auto found = std::ranges::find(properties, "keyStore", &HBLConfigurationProperty::name);
        if (found != properties.end() && !found->isTree && !found->value.empty()) {
            path = found->value;
            HBLFmDir::resolveEffectivePath(path);
            place = found->place;
        }
    }
    std::error_code failure;
    if (std::filesystem::symlink_status(path, failure).type() == std::filesystem::file_type::not_found) {
        return {};
    }
    try {
        ZORKeyStore::list(path);
        return {};
    } catch (const ZORError& e) {
        return {{HBLConfigurationFinding::eWrong, place, e.getText()}};
    }
}

} // namespace mrl::tool
