#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/MRLExport.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>

/// The receiving side of trusted requests: opens what MRLHelper::encryptTrusted made on a machine that shares
/// the key store. Each request is opened once, and only while it is fresh: one that was recorded on its way
/// and sent again is refused. So a receiver keeps one reader for all its connections. Thread-safe.
class MRL_EXPORT ZORTrustedReader {
public:
    struct Request {
        std::string service; ///< the service id of the sender
        std::string text;    ///< the request's envelope, as it was before it was protected
    };

    /// @param window how far the sender's clock and the way here may be off, either way.
    explicit ZORTrustedReader(std::chrono::seconds window = std::chrono::seconds(300));
    /// The same for a reader that began at a time of the caller's.
    ZORTrustedReader(std::chrono::seconds window, std::chrono::sys_seconds started);

    /// Whether the body of a request says of itself that it is a protected one. Nothing is proven by that.
    static bool isProtected(std::string_view body) noexcept;

    /// Opens a request.
    /// @throws ZORError: eZORExpired for one that is too old, from the future, older than this reader, or
    /// opened before; eZORRefused, eZORUnknownKey, eZORUnknownVersion, eZORKeyStore for what cannot be
    /// opened.
    Request open(std::string_view body);
    /// The same at a time of the caller's.
    Request open(std::string_view body, std::chrono::sys_seconds now);

private:
    using Seen = std::pair<std::int64_t, std::array<char, 32>>; // when it was made, its salt

    HBLThreadCriticalSection m_lock;
    const std::int64_t m_window;
    const std::int64_t m_started; // what is older may have been opened by a reader before this one
    std::set<Seen> m_seen;        // those within the window
};
