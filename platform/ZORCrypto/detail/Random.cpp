#include "ZORCrypto/detail/Random.h"

#include <atomic>
#include <cerrno>
#include <pthread.h>
#include <sys/random.h>

namespace mrl::detail {

namespace {

std::atomic<unsigned> s_forks{0};

} // namespace

bool fillRandom(void* bytes, std::size_t size) noexcept {
    auto* at = static_cast<unsigned char*>(bytes);
    while (size != 0) {
        const ssize_t got = ::getrandom(at, size, 0);
        if (got < 0 && errno != EINTR)
            return false;
        if (got > 0) {
            at += got;
            size -= static_cast<std::size_t>(got);
        }
    }
    return true;
}

unsigned forkCount() noexcept {
    static const int registered = ::pthread_atfork(nullptr, nullptr, [] { s_forks.fetch_add(1); });
    return registered == 0 ? s_forks.load() : 0;
}

} // namespace mrl::detail
