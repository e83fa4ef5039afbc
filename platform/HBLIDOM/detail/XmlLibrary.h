#pragma once

#include "HBLCore/HBLFileLocation.h"
#include "HBLCore/MRLExport.h"

namespace mrl::detail {

/// Starts the XML library, once for the process. It has to be started by one thread at a time, so all
/// users start it here. Thread-safe.
MRL_EXPORT void startXmlLibrary();

/// hblRethrowCurrent() for steps of the XML library, whose exception for want of memory derives from nothing:
/// it becomes HBLOutOfMemoryError.
[[noreturn]] void xmlRethrowCurrent(const char* function, const HBLFileLocation& where);

} // namespace mrl::detail
