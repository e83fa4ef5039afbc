#include "Session/detail/BusFactory.h"

#include "Session/MRLBusSettings.h"

#include "TavelTK/TavelTK.h"

#include <atomic>

namespace mrl::detail {

namespace {

std::atomic<BusFactoryMaker> s_maker = &TavelTK::getSessionFactory;

} // namespace

std::unique_ptr<TavelTK> createBusFactory() {
    std::unique_ptr<TavelTK> factory(s_maker.load()());
    if (const auto settings = MRLBusSettings::current(); settings != nullptr && factory != nullptr) {
        settings->apply(*factory);
    }
    return factory;
}

BusFactoryMaker replaceBusFactoryMaker(BusFactoryMaker maker) noexcept {
    return s_maker.exchange(maker);
}

} // namespace mrl::detail
