// What logging costs: a question to a level that is off, and a record beside the bare write of as many bytes.
#include "Session/MRLIPFLogger.h"
#include "Session/MRLPerfLogger.h"
#include "support/Ratios.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/I18NString.h"
#include "logipf2/LogIPFControl.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <unistd.h>

namespace {

constexpr double DISABLED_TARGET = 20; // nanoseconds

std::string s_directory; // of the log and its configuration

void DisabledMeasurement(benchmark::State& state) {
    const I18NString classId("MRLSOAPSession");
    const I18NString methodId("submit:query");
    for (auto _ : state) {
        const MRLPerfLogger perf(classId, methodId, 10000, "Perf.MRL");
        benchmark::DoNotOptimize(&perf);
    }
}

void DisabledAudit(benchmark::State& state) {
    const HBLSmartPointer<MRLIPFLogger> logger(MRLIPFLogger::create(nullptr));
    for (auto _ : state) {
        benchmark::DoNotOptimize(logger->isAuditEnabled(10000));
    }
}

/// What a look at the clock once a second costs at the least.
void CoarseClock(benchmark::State& state) {
    timespec now{};
    for (auto _ : state) {
        clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
        benchmark::DoNotOptimize(now.tv_nsec);
    }
}

std::string envelopeOf(std::int64_t size) {
    return std::string(static_cast<std::size_t>(size), 'x');
}

void AuditRecord(benchmark::State& state) {
    const HBLSmartPointer<MRLIPFLogger> logger(MRLIPFLogger::create(nullptr));
    const I18NString envelope(envelopeOf(state.range(0)));
    for (auto _ : state) {
        I18NString data(envelope);
        I18NString context("client");
        logger->audit(50000, "Request", "Failure", &data, &context);
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BareWrite(benchmark::State& state) {
    const std::string line = envelopeOf(state.range(0) + 400); // the record's other fields
    const std::string path = s_directory + "/bare";
    const int file = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    std::int64_t written = 0;
    for (auto _ : state) {
        written += ::write(file, line.data(), line.size());
        if (written > 10485760) { // as often as the log starts anew
            written = ftruncate(file, 0);
        }
    }
    ::close(file);
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void repeated(benchmark::internal::Benchmark* benchmark) {
    benchmark->MinTime(0.2)->Repetitions(5); // for the resolution
}
void sizes(benchmark::internal::Benchmark* benchmark) {
    repeated(benchmark->Arg(1000)->Arg(100000));
}

BENCHMARK(DisabledMeasurement)->Apply(repeated);
BENCHMARK(DisabledAudit)->Apply(repeated);
BENCHMARK(CoarseClock)->Apply(repeated);
BENCHMARK(AuditRecord)->Apply(sizes);
BENCHMARK(BareWrite)->Apply(sizes);

/// Adds the one target that is a time.
class Reporter : public mrl::bench::Ratios {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        Ratios::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_name.function_name == "DisabledMeasurement" && run.run_type == Run::RT_Iteration) {
                m_disabled = std::min(m_disabled, run.GetAdjustedCPUTime());
            }
        }
    }
    void Finalize() override {
        Ratios::Finalize();
        std::printf("a disabled performance logger: %.1f ns; target %.0f ns\n", m_disabled, DISABLED_TARGET);
    }

private:
    double m_disabled = std::numeric_limits<double>::max();
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    s_directory = (std::filesystem::temp_directory_path() / "mrl-bench-XXXXXX").string();
    if (::mkdtemp(s_directory.data()) == nullptr) {
        std::perror("bench_logging: mkdtemp");
        return 1;
    }
    std::ofstream(s_directory + "/mrllogging.json") << R"({"sinks": {"file": {"type": "file", "path": "log"}},
               "loggers": {"Audit": {"level": 50000, "sinks": ["file"]}}})";
    setenv(LogIPFControl::s_locationVariable, (s_directory + "/mrllogging.json").c_str(), 1);
    MRLIPFLogger::initialize();

    Reporter reporter;
    reporter.compare("DisabledMeasurement", "CoarseClock");
    reporter.compare("DisabledAudit", "CoarseClock");
    reporter.compare("AuditRecord", "BareWrite");
    benchmark::RunSpecifiedBenchmarks(&reporter);

    MRLIPFLogger::terminate();
    std::filesystem::remove_all(s_directory);
    return 0;
}
