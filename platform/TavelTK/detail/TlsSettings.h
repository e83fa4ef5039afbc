#pragma once

#include <cstdint>
#include <string>

namespace mrl::detail {

/// What a TLS connection trusts and how it shows who it is: the "tls-" properties of
/// TavelTKSession::setProperty.
struct TlsSettings {
    std::int64_t verifyCertificate = 1;
    std::int64_t verifyHost = 1;
    std::string caFile;      ///< PEM; with caDirectory empty too, the system's store
    std::string caDirectory; ///< of hashed names
    std::string certificateFile;
    std::string keyFile; ///< empty: the key stands in certificateFile
    std::string keyPassword;
    std::string minVersion = "1.2";

    bool operator==(const TlsSettings&) const = default;
};

} // namespace mrl::detail
