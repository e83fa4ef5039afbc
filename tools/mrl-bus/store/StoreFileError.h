#pragma once

#include <stdexcept>

namespace mrl::bus {

/// The file given as store cannot be used as one; the text says why and what to do.
class StoreFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace mrl::bus
