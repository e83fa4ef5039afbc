#pragma once

#include <cstdint>
#include <string>

namespace mrl::detail {

/// Where a request goes: the parts of an "http" URL.
struct Endpoint {
    std::string host;   ///< name or address, without brackets
    std::uint16_t port; ///< from the URL, or 80
    std::string path;   ///< path and query as they stand on the request line

    /// "host:port", brackets around an IPv6 address: the key of the connection pool and the name in errors.
    std::string authority() const;

    /// @throws TavelTKException badUrl, naming the URL and what is wrong with it; unsupported for "https".
    static Endpoint parse(const char* url);
    static Endpoint of(const char* host, int port, const char* path);
};

} // namespace mrl::detail
