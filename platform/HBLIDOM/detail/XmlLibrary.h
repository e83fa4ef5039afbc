#pragma once

#include "HBLCore/MRLExport.h"

namespace mrl::detail {

/// Starts the XML library, once for the process. It has to be started by one thread at a time, so all
/// users start it here. Thread-safe.
MRL_EXPORT void startXmlLibrary();

} // namespace mrl::detail
