#include "HBLCore/HBLThread.h"

#include <sys/syscall.h>
#include <unistd.h>

std::uint64_t HBLThread::currentThreadId() noexcept {
    return static_cast<std::uint64_t>(::syscall(SYS_gettid));
}
