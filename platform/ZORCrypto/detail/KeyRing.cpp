#include "ZORCrypto/detail/KeyRing.h"

#include "HBLCore/HBLThreadGuard.h"
#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/ZORKeyStore.h"
#include "ZORCrypto/detail/KeyStoreFile.h"

#include <optional>
#include <utility>

namespace mrl::detail {

namespace {

struct Cached {
    std::string path;
    FileState state;
    std::shared_ptr<const KeySet> keys;
};

HBLThreadCriticalSection s_lock;

Cached& cached() {
    static Cached cache; // wiped when the process ends
    return cache;
}

std::shared_ptr<const KeySet> load(bool make) {
    const std::string path = ZORKeyStore::location();
    const KeyStoreFile file(path);
    const HBLThreadGuard guard(s_lock);
    Cached& cache = cached();
    const std::optional<FileState> now = file.look();
    if (now && cache.keys && cache.path == path && cache.state == *now)
        return cache.keys;
    FileState state;
    std::optional<KeySet> keys = file.read(&state);
    if (!keys && make) {
        file.create();
        keys = file.read(&state);
    }
    if (!keys)
        HBL_THROW(ZORError(eZORKeyStore, "there is no key store " + path +
                                             "; `mrl keys init` makes one, MRL_KEY_STORE names another"),
                  "KeyRing");
    cache = Cached{path, state, std::make_shared<const KeySet>(*std::move(keys))};
    return cache.keys;
}

} // namespace

std::shared_ptr<const KeySet> keysForWriting() {
    return load(true);
}

std::shared_ptr<const KeySet> keysForReading() {
    return load(false);
}

void forgetKeys() {
    const HBLThreadGuard guard(s_lock);
    cached() = Cached{};
}

} // namespace mrl::detail
