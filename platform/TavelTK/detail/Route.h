#pragma once

#include "TavelTK/detail/Endpoint.h"
#include "TavelTK/detail/SessionOptions.h"

#include <optional>
#include <string>
#include <string_view>

namespace mrl::detail {

/// The way from here to a peer: straight, or through a proxy that forwards requests ("http") or carries a
/// tunnel ("https").
struct Route {
    Endpoint target;
    std::optional<Endpoint> proxy;
    std::string poolKey; ///< connections of one key may stand in for each other

    Route(Endpoint target, const SessionOptions& options);

    bool isForwarded() const { return proxy && !target.isTls; }
    bool isTunnelled() const { return proxy && target.isTls; }
    /// Where the connection itself goes.
    const Endpoint& nextHop() const { return proxy ? *proxy : target; }

    /// @return nothing when it is no usable "host:port" or "http://host:port"
    static std::optional<Endpoint> parseProxy(std::string_view text);
};

} // namespace mrl::detail
