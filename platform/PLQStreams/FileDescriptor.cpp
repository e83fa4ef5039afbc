#include "PLQStreams/FileDescriptor.h"

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace mrl::detail {

int FileDescriptor::close() noexcept {
    if (!isOpen())
        return 0;
    // Also after EINTR the descriptor is gone, so there is nothing to repeat.
    return ::close(std::exchange(m_descriptor, -1)) == 0 || errno == EINTR ? 0 : errno;
}

} // namespace mrl::detail
