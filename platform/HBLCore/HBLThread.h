#pragma once

#include "HBLCore/MRLExport.h"

#include <cstdint>

/// The threads of the host.
class MRL_EXPORT HBLThread {
public:
    /// A number for the calling thread, never 0, its own for as long as it runs.
    static std::uint64_t currentThreadId() noexcept;
};
