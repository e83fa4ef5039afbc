#pragma once

#include <cstdint>
#include <string>

namespace mrl::detail {

/// Where a request goes: the parts of an "http" or "https" URL.
struct Endpoint {
    std::string host;   ///< name or address, without brackets
    std::uint16_t port; ///< from the URL, or 80 or 443
    std::string path;   ///< path and query as they stand on the request line
    bool isTls = false; ///< "https"

    /// "host:port", brackets around an IPv6 address: the name in errors and the Host header.
    std::string authority() const;

    /// @throws TavelTKException badUrl, naming the URL and what is wrong with it. A URL with a user's
    ///         credentials is refused, since URLs are logged; they are properties.
    static Endpoint parse(const char* url);
    static Endpoint of(const char* host, int port, const char* path);
};

} // namespace mrl::detail
