#pragma once

#include "ZORCrypto/detail/KeySet.h"

#include <memory>
#include <string>

// The installation's keys in this process: read once, read again when the file has changed. Thread-safe.
namespace mrl::detail {

/// The keys to write with. Makes the store when there is none.
std::shared_ptr<const KeySet> keysForWriting();

/// The keys to read with.
/// @throws ZORError also when there is no store.
std::shared_ptr<const KeySet> keysForReading();

/// Drops what is in memory; the next use reads again.
void forgetKeys();

} // namespace mrl::detail
