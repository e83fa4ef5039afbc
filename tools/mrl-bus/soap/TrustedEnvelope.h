#pragma once

#include "PLQStreams/PLQInputStream.h"

#include <memory>
#include <string>

class ZORTrustedReader;

namespace mrl::bus {

/// An envelope as it came in, in clear or encrypted, and in clear in any case.
class TrustedEnvelope {
public:
    /// Reads the beginning, and all of an encrypted one.
    /// @throws Refusal for an encrypted one that cannot be opened with the key store of this installation.
    TrustedEnvelope(PLQInputStream& envelope, ZORTrustedReader& keys);

    PLQInputStream& clear() { return *m_clear; }
    bool isTrusted() const { return m_trusted; }

private:
    std::string m_bytes; // the beginning, or the whole decrypted envelope
    std::unique_ptr<PLQInputStream> m_clear;
    bool m_trusted = false;
};

} // namespace mrl::bus
