#pragma once

#include "TavelTK/detail/TlsSettings.h"

#include <cstdint>
#include <string>

namespace mrl::detail {

/// How an exchange is carried: the properties of TavelTKSession::setProperty, with their defaults.
struct SessionOptions {
    std::int64_t sendContentLength = 1;
    std::int64_t chunkSize = 131072;
    std::int64_t expectContinue = 0;
    std::int64_t connectTimeLimit = 30000;
    std::int64_t sendTimeLimit = 0;
    std::int64_t receiveTimeLimit = 0;
    std::int64_t maxHeaderBytes = 65536;
    std::int64_t maxEnvelopeBytes = 134217728;
    std::int64_t maxReplyBytes = 0;
    std::int64_t maxParts = 10000;
    std::int64_t maxEarlyBytes = 4194304;
    std::int64_t inflateAttachments = 0;
    std::int64_t maxInflatedBytes = 0;
    std::int64_t maxInflateRatio = 200;

    std::string user;
    std::string password;
    std::string traceId;
    std::string proxy; ///< "http://host:port" or "host:port"; empty: none
    std::string proxyUser;
    std::string proxyPassword;
    std::string noProxy;
    TlsSettings tls;

    /// @throws TavelTKException badArgument: no such property, or a value out of its range.
    void set(const std::string& name, std::int64_t value);
    void set(const std::string& name, const std::string& value);
};

} // namespace mrl::detail
