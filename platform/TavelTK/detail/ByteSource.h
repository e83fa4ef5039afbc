#pragma once

#include <cstddef>
#include <string_view>

namespace mrl::detail {

/// Bytes to pull from. A failure is an exception.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    /// Up to `size` bytes (not 0), at least one; 0 at the regular end.
    virtual std::size_t read(char* buffer, std::size_t size) = 0;
};

} // namespace mrl::detail
