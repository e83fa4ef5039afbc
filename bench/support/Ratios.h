#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace mrl::bench {

/// Prints the usual table and, behind it, how figures of the same run stand to each other: the best of the
/// repetitions over the best, since all that disturbs a run makes it slower. The resolution says how far
/// the medians lie from the best; a ratio is known no better than that.
class Ratios : public benchmark::ConsoleReporter {
public:
    Ratios()
        : ConsoleReporter(OO_Tabular) {}

    /// Both are benchmark names without their argument; runs with equal arguments are compared.
    /// @param target the ratio that is aimed for; 0 for none.
    /// @param others where it is another one: by the argument.
    void compare(std::string figure, std::string rival, double target = 0,
                 std::map<std::string, double> others = {}) {
        m_pairs.push_back({std::move(figure), std::move(rival), target, std::move(others)});
    }
    /// The time for one of `many` objects over that for one of `few`, of the same benchmark.
    void compareScale(std::string figure, long many, long few, double target) {
        m_scales.push_back({std::move(figure), many, few, target});
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (!run.error_occurred && run.run_type == Run::RT_Iteration) {
                const bool isReal =
                    run.run_name.time_type == "real_time"; // waiting counts where it was asked for
                m_times[run.run_name.function_name][run.run_name.args].push_back(
                    isReal ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime());
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\n%-44s %8s %8s %11s\n", "ratio", "is", "target", "resolution");
        for (const Pair& pair : m_pairs) {
            for (const auto& [argument, times] : m_times[pair.figure]) {
                const auto& rivals = m_times[pair.rival];
                if (const auto rival = rivals.find(argument); rival != rivals.end()) {
                    const auto other = pair.others.find(argument);
                    print(pair.figure + " / " + pair.rival + " at " + argument, times, rival->second, 1,
                          other == pair.others.end() ? pair.target : other->second);
                }
            }
        }
        for (const Scale& scale : m_scales) {
            auto& times = m_times[scale.figure];
            const auto many = times.find(std::to_string(scale.many));
            const auto few = times.find(std::to_string(scale.few));
            if (many != times.end() && few != times.end()) {
                print(scale.figure + " an object, " + many->first + " / " + few->first, many->second,
                      few->second, static_cast<double>(scale.few) / static_cast<double>(scale.many),
                      scale.target);
            }
        }
    }

private:
    using Times = std::vector<double>;
    struct Pair {
        std::string figure;
        std::string rival;
        double target;
        std::map<std::string, double> others;
    };
    struct Scale {
        std::string figure;
        long many;
        long few;
        double target;
    };

    static double best(const Times& times) { return *std::min_element(times.begin(), times.end()); }
    static double spread(Times times) {
        std::sort(times.begin(), times.end());
        return times[times.size() / 2] / times.front() - 1;
    }
    static void print(const std::string& name, const Times& figure, const Times& rival, double scale,
                      double target) {
        std::printf("%-44s %8.2f ", name.c_str(), best(figure) / best(rival) * scale);
        if (target > 0) {
            std::printf("%8.2f ", target);
        } else {
            std::printf("%8s ", "");
        }
        std::printf("%9.0f %%\n", 100 * std::max(spread(figure), spread(rival)));
    }

    std::vector<Pair> m_pairs;
    std::vector<Scale> m_scales;
    std::map<std::string, std::map<std::string, Times>> m_times; // function, argument
};

} // namespace mrl::bench
