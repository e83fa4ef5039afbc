#pragma once

#include <memory>

class TavelTK;

namespace mrl::detail {

/// Makes what one call drives the bus with, set up as the configuration says. Thread-safe.
/// @throws HBLConfigurationError for settings that it cannot take.
std::unique_ptr<TavelTK> createBusFactory();

using BusFactoryMaker = TavelTK* (*)();

/// Puts another maker in place of the real bus toolkit, for tests.
/// @return the maker so far.
BusFactoryMaker replaceBusFactoryMaker(BusFactoryMaker maker) noexcept;

} // namespace mrl::detail
