#pragma once

#include "HBLCore/MRLExport.h"

#include <cstdint>
#include <string>
#include <vector>

/// The key store of an installation, for who looks after it. Its keys never leave the library; here they have
/// names only. Thread-safe, and safe against other processes doing the same. Everything throws ZORError when
/// the store cannot be made, read, or trusted; the text names the file and the remedy.
class MRL_EXPORT ZORKeyStore {
public:
    ZORKeyStore() = delete;

    /// The environment variable that names the store, before everything else.
    static constexpr const char* s_locationVariable = "MRL_KEY_STORE";
    /// Where the store is when nothing names another place; as seen from the installation's directory for
    /// programs.
    static constexpr const char* s_defaultLocation = "../configuration/keystore/mrl.keys";

    /// A key as people see it.
    struct Entry {
        std::string id;       ///< 16 hexadecimal digits, found in everything made with the key
        std::int64_t created; ///< seconds since 1970
        bool writes;          ///< the newest key; all of them read
    };

    /// The store's path, absolute: from the environment variable, else from the location source, else the
    /// default.
    static std::string location();

    /// Sets who is asked for the path when the environment names none, such as the configuration.
    /// @param source gives an empty text for no opinion; null asks nobody.
    static void setLocationSource(std::string (*source)());

    /// Makes a store with one key, 0600, its directory 0700 where it is new.
    /// @return false when there is one already.
    static bool create(const std::string& path);

    /// Adds a key that writes from now on, also in programs that are running.
    static Entry rotate(const std::string& path);

    /// All keys, oldest first. Checks the store as every use of it does.
    static std::vector<Entry> list(const std::string& path);
};
