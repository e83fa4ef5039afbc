#pragma once

#include "HBLCore/MRLExport.h"

/// The version of the library that is loaded, as "major.minor.patch".
MRL_EXPORT const char* mrlVersion() noexcept;
