#pragma once

#include <memory>

class TavelTK;

namespace mrl::detail {

/// Makes what one call drives the bus with. Thread-safe.
std::unique_ptr<TavelTK> createBusFactory();

using BusFactoryMaker = TavelTK* (*)();

/// Puts another maker in place of the real bus toolkit, for tests.
/// @return the maker so far.
BusFactoryMaker replaceBusFactoryMaker(BusFactoryMaker maker) noexcept;

} // namespace mrl::detail
