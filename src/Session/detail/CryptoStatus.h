#pragma once

#include "HBLCore/HBLBoundary.h"
#include "ZORCrypto/ZOR_Crypto_Interface.h"

namespace mrl::detail {

/// A status of the crypto library, for what follows to judge. Want of memory is no refusal of the library's:
/// it ends as everywhere.
/// @throws HBLOutOfMemoryError
inline ZOR_Int32 unlessOutOfMemory(ZOR_Int32 status,
                                   const HBLFileLocation& where = HBLFileLocation::current()) {
    if (status == eZOROutOfMemory) {
        hblOutOfMemory(where, "MRLHelper");
    }
    return status;
}

} // namespace mrl::detail
