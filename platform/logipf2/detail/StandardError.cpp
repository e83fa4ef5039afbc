#include "logipf2/detail/StandardError.h"

#include "logipf2/detail/Descriptor.h"

#include <unistd.h>

namespace mrl::detail {

LineWriterI::Result StandardError::write(spdlog::level::level_enum /*severity*/, std::string_view line) {
    std::size_t written = 0;
    const int error = writeWhole(STDERR_FILENO, line, true, written);
    return {error == 0, error == 0 ? std::string() : "cannot write to it: " + failureText(error)};
}

} // namespace mrl::detail
