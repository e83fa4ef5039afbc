#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>

class HBLByteBuffer;
class I18NString;

/// Static helpers around a session. Thread-safe.
class MRL_EXPORT MRLHelper {
public:
    /// Starts the crypto library for a service.
    /// @return 1, or 0 when it cannot start.
    static int initCrypto(const char* service);
    static void terminateCrypto(const char* service);

    /// Appends the encrypted form of a request to `out`.
    /// @throws HBLAssertError: this build has no crypto gateway, and a request that asks for protection does
    /// not go out without it.
    static void encryptTrusted(const char* data, std::size_t size, const char* service, HBLByteBuffer& out);

    /// The endpoint of the content manager, from the configuration.
    /// @throws HBLAssertError when it is not configured; MRLSOAPSession::setURI does without.
    static void getContentManagerURI(I18NString& uri);

    /// The endpoint of the dispatcher, from the configuration.
    /// @throws HBLAssertError when it is not configured; MRLSOAPSession::setURI does without.
    static void getDispatcherURI(I18NString& uri, int internalOnly);
};
