#include "Session/detail/BusFactory.h"

#include "TavelTK/TavelTK.h"

#include <atomic>

namespace mrl::detail {

namespace {

std::atomic<BusFactoryMaker> s_maker = &TavelTK::getSessionFactory;

} // namespace

std::unique_ptr<TavelTK> createBusFactory() {
    return std::unique_ptr<TavelTK>(s_maker.load()());
}

BusFactoryMaker replaceBusFactoryMaker(BusFactoryMaker maker) noexcept {
    return s_maker.exchange(maker);
}

} // namespace mrl::detail
