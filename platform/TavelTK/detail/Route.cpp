#include "TavelTK/detail/Route.h"

#include "TavelTK/TavelTKException.h"
#include "TavelTK/detail/Headers.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <new>

namespace mrl::detail {

namespace {

/// Whether `host` is `name` or lies below it.
bool isWithin(std::string_view host, std::string_view name) {
    if (name.starts_with('.'))
        name.remove_prefix(1);
    if (name.empty() || host.size() < name.size() || !sameText(host.substr(host.size() - name.size()), name))
        return false;
    return host.size() == name.size() || host[host.size() - name.size() - 1] == '.';
}

bool isExcepted(std::string_view host, std::string_view list) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find_first_of(", "), list.size());
        if (isWithin(host, list.substr(0, end)) || list.substr(0, end) == "*")
            return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

/// What must be alike for a connection to be shared. Passwords are part of it, so only a digest is kept.
std::string key(const Route& route, const SessionOptions& options) {
    std::string name = route.target.authority();
    if (!route.target.isTls && !route.proxy)
        return name;
    const TlsSettings& tls = options.tls;
    std::string settings;
    const auto add = [&](std::string_view text) {
        settings.append(std::to_string(text.size())).append(":").append(text);
    };
    if (route.proxy)
        for (const std::string& text : {route.proxy->authority(), options.proxyUser, options.proxyPassword})
            add(text);
    if (route.target.isTls)
        for (const std::string& text :
             {std::to_string(tls.verifyCertificate), std::to_string(tls.verifyHost), tls.caFile,
              tls.caDirectory, tls.certificateFile, tls.keyFile, tls.keyPassword, tls.minVersion})
            add(text);
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest;
    unsigned int size = 0;
    if (EVP_Digest(settings.data(), settings.size(), digest.data(), &size, EVP_sha256(), nullptr) != 1)
        throw std::bad_alloc();
    name.append(route.target.isTls ? " tls " : " ").append(route.proxy ? "proxy " : "");
    return name.append(digest.begin(), digest.begin() + size);
}

} // namespace

Route::Route(Endpoint to, const SessionOptions& options)
    : target(std::move(to)) {
    if (!options.proxy.empty() && !isExcepted(target.host, options.noProxy))
        proxy = parseProxy(options.proxy);
    poolKey = key(*this, options);
}

std::optional<Endpoint> Route::parseProxy(std::string_view text) {
    const bool hasScheme = text.find("://") != std::string_view::npos;
    try {
        Endpoint proxy = Endpoint::parse(((hasScheme ? "" : "http://") + std::string(text)).c_str());
        const bool isGood = !proxy.isTls && proxy.path == "/";
        return isGood ? std::optional(std::move(proxy)) : std::nullopt;
    } catch (const TavelTKException&) {
        return std::nullopt; // the caller names the property and the remedy
    }
}

} // namespace mrl::detail
