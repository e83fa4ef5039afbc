#include "keys/Keys.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "ZORCrypto/ZORKeyStore.h"

#include <ctime>
#include <filesystem>
#include <iomanip>
#include <ostream>

namespace mrl::tool {

namespace {

std::string configuredPath() {
    return HBLConfigurationFactory::getInstance().getProperty(I18NString("keyStore")).toUtf8();
}

void print(const ZORKeyStore::Entry& entry, std::ostream& out) {
    const std::time_t created = entry.created;
    std::tm parts{};
    ::gmtime_r(&created, &parts);
    out << entry.id << "  " << std::put_time(&parts, "%FT%TZ") << "  "
        << (entry.writes ? "writes and reads" : "reads") << '\n';
}

} // namespace

std::string keyStorePath(const std::string& given) {
    if (!given.empty())
        return std::filesystem::absolute(given).string();
    ZORKeyStore::setLocationSource(&configuredPath);
    return ZORKeyStore::location();
}

bool initKeys(const std::string& path, std::ostream& out, std::ostream& errors) {
    if (!ZORKeyStore::create(path)) {
        errors << "mrl: the key store " << path << " is there already; `mrl keys rotate` adds a key\n";
        return false;
    }
    listKeys(path, out);
    return true;
}

void listKeys(const std::string& path, std::ostream& out) {
    const auto entries = ZORKeyStore::list(path);
    out << path << '\n';
    for (const ZORKeyStore::Entry& entry : entries)
        print(entry, out);
}

void rotateKeys(const std::string& path, std::ostream& out) {
    ZORKeyStore::rotate(path);
    listKeys(path, out);
}

} // namespace mrl::tool
