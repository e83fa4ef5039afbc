#pragma once

#include "ZORCrypto/detail/ControlDocument.h"
#include "ZORCrypto/detail/Purpose.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrl::detail {

/// What stands behind a ZOR_Handle: a service, what it wants, and what happened last. Everything that fails
/// throws ZORError. One thread at a time.
class CryptoHandle {
public:
    explicit CryptoHandle(std::string service);

    void setInfo(const ControlDocument& document);
    std::string getInfo(const ControlDocument& document) const;

    std::string protect(std::string_view data) const;

    /// For data and trusted requests.
    void unprotect(std::string_view data, std::string& clear) const;
    /// @return the bytes that the signature covers.
    std::size_t verifySpecification(std::string_view data) const;
    /// Keeps what getInfo() tells.
    void acceptState(std::string_view passport, std::string_view state);

    /// @throws ZORError when no purpose was set.
    Purpose purpose() const;

    std::string lastError;

private:
    std::string m_service;
    std::optional<Purpose> m_purpose;
    bool m_issuesExternal = false;
    bool m_isValid = false;    // of the last secure state
    bool m_isExternal = false; // of the last secure state
};

} // namespace mrl::detail
