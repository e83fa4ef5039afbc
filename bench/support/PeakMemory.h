#pragma once

#include <fstream>
#include <string>

namespace mrl::bench {

/// The most memory that the process has had since this was made, over what it had then.
class PeakMemory {
public:
    PeakMemory() {
        std::ofstream("/proc/self/clear_refs") << 5;
        m_before = kilobytes("VmRSS:");
    }
    double mebibytes() const { return static_cast<double>(kilobytes("VmHWM:") - m_before) / 1024; }

private:
    static long kilobytes(const std::string& field) {
        std::ifstream status("/proc/self/status");
        for (std::string word; status >> word;) {
            if (word == field) {
                long value = 0;
                status >> value;
                return value;
            }
        }
        return 0;
    }
    long m_before = 0;
};

} // namespace mrl::bench
