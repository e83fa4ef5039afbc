#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace mrl::bench {

/// Prints the usual table and, behind it, how figures of the same run stand to each other.
class Ratios : public benchmark::ConsoleReporter {
public:
    Ratios()
        : ConsoleReporter(OO_Tabular) {}

    /// Both are benchmark names without their argument; runs with equal arguments are compared.
    void compare(std::string figure, std::string rival) {
        m_pairs.emplace_back(std::move(figure), std::move(rival));
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.error_occurred) {
                continue;
            }
            const double time = run.GetAdjustedCPUTime();
            auto [entry, isNew] = m_times[run.run_name.function_name].try_emplace(run.run_name.args, time);
            if (!isNew && time < entry->second) {
                entry->second = time; // the best repetition: the machine is noisy
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        for (const auto& [figure, rival] : m_pairs) {
            for (const auto& [argument, time] : m_times[figure]) {
                if (const auto found = m_times[rival].find(argument); found != m_times[rival].end()) {
                    std::printf("%s / %s at %s: %.2f\n", figure.c_str(), rival.c_str(), argument.c_str(),
                                time / found->second);
                }
            }
        }
    }

private:
    std::vector<std::pair<std::string, std::string>> m_pairs;
    std::map<std::string, std::map<std::string, double>> m_times; // function, argument, best time
};

} // namespace mrl::bench
