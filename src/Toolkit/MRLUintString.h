#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <vector>

/// The number as decimal text; the same pointer at each call, valid as long as the process.
/// Thread-safe.
MRL_EXPORT const char* MRL_getUintStringResource(std::size_t i);

namespace mrl::detail {

/// Appends "0", "1", ... up to `count` names, taking the lock of the texts once.
void appendUintStrings(std::vector<const char*>& names, std::size_t count);

} // namespace mrl::detail
