#pragma once

#include <memory>
#include <type_traits>

/// Gives back to a factory what it made.
template <class Factory>
struct MRLGiveBack {
    template <class Made>
    void operator()(Made* made) const {
        Factory::getInstance().destroy(made);
    }
};

/// What the factory makes, until it goes back there: a writer, a reader.
/// @throws what the factory's create() throws.
template <class Factory>
auto mrlFromFactory() {
    auto* const made = Factory::getInstance().create();
    return std::unique_ptr<std::remove_pointer_t<decltype(made)>, MRLGiveBack<Factory>>(made);
}
