#pragma once

#include "HBLCore/MRLExport.h"

#include <cstdint>
#include <string>

/// Measures stretches of work of one thread: the time that passed and the processor time of the thread.
/// Begin and end of a stretch must run on the same thread.
class MRL_EXPORT HBLResourceCounterSet {
public:
    /// Sums over the finished stretches.
    struct Readings {
        std::int64_t elapsedMicroseconds = 0;
        std::int64_t processorMicroseconds = 0;
        int stretches = 0;
    };

    /// @param name copied; null is empty.
    /// @param parent counts every stretch of this set as its own, too; borrowed, may be null, must live
    /// longer.
    HBLResourceCounterSet(const char* name, HBLResourceCounterSet* parent);
    HBLResourceCounterSet(const HBLResourceCounterSet&) = delete;
    HBLResourceCounterSet& operator=(const HBLResourceCounterSet&) = delete;

    /// Begins a stretch; without effect while one runs.
    void enableResourceCounter() noexcept;
    /// Ends the stretch; without effect while none runs.
    void disableResourceCounter() noexcept;
    /// Whether a stretch runs.
    bool isResourceCounterActive() const noexcept { return m_active; }

    const Readings& getReadings() const noexcept { return m_readings; }
    const std::string& getName() const noexcept { return m_name; }

private:
    void add(const Readings& stretch) noexcept;

    std::string m_name;
    HBLResourceCounterSet* m_parent;
    Readings m_readings;
    Readings m_begin; // the clocks when the stretch began
    bool m_active = false;
};
