#include "TavelTK/detail/Endpoint.h"

#include "TavelTK/detail/Failure.h"

#include <Poco/Exception.h>
#include <Poco/URI.h>

#include <algorithm>
#include <string_view>

namespace mrl::detail {

namespace {

[[noreturn]] void refuse(std::string_view url, std::string_view reason) {
    fail(TavelTKError::badUrl, TavelTKPhase::prepare, {},
         "the URL '" + printable(url) + "' " + std::string(reason) +
             "; expected http://host:port/path or https://host:port/path");
}

} // namespace

std::string Endpoint::authority() const {
    const bool isIPv6 = host.find(':') != std::string::npos;
    return (isIPv6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

Endpoint Endpoint::parse(const char* url) {
    const std::string_view text = url ? url : "";
    if (text.empty())
        refuse(text, "is empty");
    if (std::ranges::any_of(text, [](unsigned char c) { return c <= ' ' || c == 0x7f; }))
        refuse(text, "contains a blank or a control character");
    try {
        const Poco::URI uri{std::string(text)};
        const bool isTls = uri.getScheme() == "https";
        if (!isTls && uri.getScheme() != "http")
            refuse(text, "has another scheme than 'http' and 'https'");
        if (!uri.getUserInfo().empty())
            refuse(uri.getScheme() + "://***@" + uri.getHost(),
                   "contains a user's credentials, which are the properties 'user' and 'password'");
        if (uri.getHost().empty())
            refuse(text, "names no host");
        if (uri.getPort() == 0)
            refuse(text, "has no usable port");
        std::string path = uri.getPathAndQuery();
        if (path.empty() || path.front() != '/')
            path.insert(path.begin(), '/');
        return {uri.getHost(), uri.getPort(), std::move(path), isTls};
    } catch (const Poco::Exception& e) {
        refuse(text, "cannot be parsed (" + e.displayText() + ")");
    }
}

Endpoint Endpoint::of(const char* host, int port, const char* path) {
    const std::string name = host ? host : "";
    const bool isIPv6 = name.find(':') != std::string::npos && name.front() != '[';
    const std::string tail = path ? path : "";
    return parse(("http://" + (isIPv6 ? "[" + name + "]" : name) + ":" + std::to_string(port) +
                  (tail.starts_with('/') ? "" : "/") + tail)
                     .c_str());
}

} // namespace mrl::detail
