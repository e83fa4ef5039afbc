#include "Session/detail/FileGate.h"

#include <atomic>

namespace mrl::detail {

namespace {

std::atomic<FileGate> s_gate = nullptr;

} // namespace

FileGate replaceFileGate(FileGate gate) noexcept {
    return s_gate.exchange(gate);
}

bool passes(FileStep step) {
    const FileGate gate = s_gate.load(std::memory_order_relaxed);
    return gate == nullptr || gate(step);
}

} // namespace mrl::detail
