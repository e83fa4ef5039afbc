#pragma once

#include "TavelTK/detail/TlsSettings.h"

#include <openssl/types.h>

#include <list>
#include <memory>
#include <mutex>
#include <string>

namespace mrl::detail {

using TlsContext = std::shared_ptr<SSL_CTX>;

/// Ready trust and keys by their settings: reading a store of authorities takes far longer than a
/// handshake. Thread-safe; bounded. A file that has changed since it was read is read again.
class TlsContexts {
public:
    static constexpr std::size_t maxKept = 16;

    /// The contexts of the process. Never destroyed, like the pool of connections that they serve.
    static TlsContexts& shared();

    /// @throws TavelTKException tlsSetupFailed, naming the file that cannot be used.
    TlsContext get(const TlsSettings& settings);

private:
    struct Kept {
        TlsSettings settings;
        std::string stamp; ///< of the files, when they were read
        TlsContext context;
    };

    std::mutex m_mutex;
    std::list<Kept> m_kept; // last used first
};

/// The library's words for the failure of this thread, which are taken.
std::string takeTlsWords();

} // namespace mrl::detail
