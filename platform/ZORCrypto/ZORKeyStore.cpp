#include "ZORCrypto/ZORKeyStore.h"

#include "HBLCore/HBLFmDir.h"
#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/KeyStoreFile.h"
#include "ZORCrypto/detail/Text.h"

#include <atomic>
#include <cstdlib>
#include <optional>

using mrl::detail::KeySet;
using mrl::detail::KeyStoreFile;
using mrl::detail::MasterKey;

namespace {

std::atomic<std::string (*)()> s_source{nullptr};

ZORKeyStore::Entry entryOf(const MasterKey& master, const KeySet& keys) {
    return {mrl::detail::toHex(master.id), master.created, &master == &keys.newest()};
}

} // namespace

std::string ZORKeyStore::location() {
    std::string path;
    if (const char* const named = secure_getenv(s_locationVariable))
        path = named;
    if (auto* const source = s_source.load(); path.empty() && source != nullptr)
        path = source();
    if (path.empty())
        path = s_defaultLocation;
    HBLFmDir::resolveEffectivePath(path);
    return path;
}

void ZORKeyStore::setLocationSource(std::string (*source)()) {
    s_source.store(source);
}

bool ZORKeyStore::create(const std::string& path) {
    return KeyStoreFile(path).create();
}

ZORKeyStore::Entry ZORKeyStore::rotate(const std::string& path) {
    const KeySet keys = KeyStoreFile(path).rotate();
    return entryOf(keys.newest(), keys);
}

std::vector<ZORKeyStore::Entry> ZORKeyStore::list(const std::string& path) {
    const std::optional<KeySet> keys = KeyStoreFile(path).read();
    if (!keys)
        HBL_THROW(ZORError(eZORKeyStore, "there is no key store " + path + "; `mrl keys init` makes one"),
                  "ZORKeyStore::list");
    std::vector<Entry> entries;
    for (const MasterKey& master : keys->all())
        entries.push_back(entryOf(master, *keys));
    return entries;
}
