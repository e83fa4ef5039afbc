#pragma once

#include "HBLCore/HBLFailure.h"

#include <cstdint>

namespace mrl::detail {

/// Where in a signed specification of `size` bytes its signature begins, when the crypto library says
/// that it covers `verified` bytes; null when it tells nothing.
/// @throws HBLAssertError when nothing is left for the signature.
inline const char* signatureIn(const char* data, std::uint32_t size, std::uint32_t verified) {
    if (verified >= size) [[unlikely]]
        hblAssertFailed("HBL_ASSERT_NAMED(veridataSize < (ZOR_UInt32)size, "
                        "\"MRLHelper::verifySpecSignature - size/signature location mismatch\");",
                        HBL_HERE, "MRLHelper::verifySpecSignature");
    return verified == 0 ? nullptr : data + verified;
}

} // namespace mrl::detail
