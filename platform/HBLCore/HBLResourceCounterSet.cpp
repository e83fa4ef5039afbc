#include "HBLCore/HBLResourceCounterSet.h"

#include <ctime>

namespace {

std::int64_t microseconds(clockid_t clock) noexcept {
    timespec now{};
    clock_gettime(clock, &now);
    return std::int64_t{now.tv_sec} * 1'000'000 + now.tv_nsec / 1'000;
}

HBLResourceCounterSet::Readings clocks() noexcept {
    return {microseconds(CLOCK_MONOTONIC), microseconds(CLOCK_THREAD_CPUTIME_ID), 0};
}

} // namespace

HBLResourceCounterSet::HBLResourceCounterSet(const char* name, HBLResourceCounterSet* parent)
    : m_name(name ? name : "")
    , m_parent(parent) {}

void HBLResourceCounterSet::enableResourceCounter() noexcept {
    if (m_active)
        return;
    m_active = true;
    m_begin = clocks();
}

void HBLResourceCounterSet::disableResourceCounter() noexcept {
    if (!m_active)
        return;
    const Readings now = clocks();
    m_active = false;
    add({now.elapsedMicroseconds - m_begin.elapsedMicroseconds,
         now.processorMicroseconds - m_begin.processorMicroseconds, 1});
}

void HBLResourceCounterSet::add(const Readings& stretch) noexcept {
    m_readings.elapsedMicroseconds += stretch.elapsedMicroseconds;
    m_readings.processorMicroseconds += stretch.processorMicroseconds;
    m_readings.stretches += stretch.stretches;
    if (m_parent)
        m_parent->add(stretch);
}
