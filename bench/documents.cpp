// Documents: a small one in its pooled buffer beside a copy of the bytes; a large one through its temporary
// file, plain and encrypted, beside a file that is written and read by system calls alone, in the same
// directory ($TMPDIR, or /tmp). All by the time of this process, the system's on its behalf included: what
// the disk does afterwards is the same for all.
#include "Session/MRLDocumentOutput.h"
#include "support/Heap.h"
#include "support/PeakMemory.h"
#include "support/Ratios.h"
#include "support/UnpackableBytes.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCFGAPI/HBLConfigurationNames.h"
#include "HBLIDOM/HBLIDOM_Document.h"
#include "HBLIDOM/HBLIDOM_Parser.h"
#include "PLQStreams/PLQOutputStream.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

using mrl::bench::PeakMemory;
using mrl::bench::unpackableBytes;

namespace {

constexpr std::size_t PIECE = 64 * 1024; // what a producer writes at once
constexpr std::size_t KIB = 1024;
constexpr std::size_t MIB = 1024 * KIB;

std::string temporaryDirectory() {
    const char* const named = std::getenv("TMPDIR");
    return named != nullptr && *named != '\0' ? named : "/tmp";
}

void configure(bool encrypted) {
    const auto parameter = [](const std::string& name, const std::string& value) {
        return "<p:parameter name='" + name + "'><p:value>" + value + "</p:value></p:parameter>";
    };
    const std::string text = std::string("<p:parameters xmlns:p='") + HBLConfigurationNames::s_namespace +
                             "'>" + parameter("temp", temporaryDirectory() + "/mrl-bench") +
                             parameter("encryptTemporaryFiles", encrypted ? "true" : "false") +
                             "</p:parameters>";
    HBLIDOM_Document document;
    HBLIDOM_Parser().parse(text.data(), text.size(), document);
    HBLConfigurationFactory::getInstance().configure(document.getDocumentElement());
}

/// Takes a document as a connection does: looks at each byte's cache line and keeps none.
class Sink : public PLQOutputStream {
public:
    void write(const char* data, std::size_t length) override {
        benchmark::DoNotOptimize(data);
        m_length += length;
    }
    std::size_t length() const { return m_length; }

private:
    std::size_t m_length = 0;
};

void fill(MRLDocumentOutput& document, std::size_t size, std::size_t pieceSize) {
    for (std::size_t done = 0; done < size; done += pieceSize) {
        document.write(unpackableBytes().data(), pieceSize);
    }
}

/// One document of `size` bytes, written, copied out and given up.
bool passThrough(MRLDocumentOutput& document, std::size_t size, std::size_t pieceSize) {
    document.init(0, 0);
    fill(document, size, pieceSize);
    Sink sink;
    document >> sink;
    const bool isWhole = sink.length() == size;
    document.init(0, 0);
    return isWhole;
}

void SmallDocument(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0)) * KIB;
    MRLDocumentOutput document;
    passThrough(document, size, KIB);
    const mrl::bench::HeapUse use;
    for (auto _ : state) {
        if (!passThrough(document, size, KIB)) {
            state.SkipWithError("the document did not come out whole");
            return;
        }
    }
    state.counters["allocations"] = static_cast<double>(use.allocations());
    state.SetBytesProcessed(state.iterations() * state.range(0) * static_cast<std::int64_t>(KIB));
}

void SmallCopy(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0)) * KIB;
    std::vector<char> target(size);
    for (auto _ : state) {
        for (std::size_t done = 0; done < size; done += KIB) {
            std::copy_n(unpackableBytes().data(), KIB, target.data() + done);
            benchmark::ClobberMemory();
        }
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) * static_cast<std::int64_t>(KIB));
}

void largeDocument(benchmark::State& state, bool encrypted) {
    const auto size = static_cast<std::size_t>(state.range(0)) * MIB;
    configure(encrypted);
    MRLDocumentOutput document;
    passThrough(document, 2 * MIB, PIECE);
    const PeakMemory memory;
    for (auto _ : state) {
        if (!passThrough(document, size, PIECE)) {
            state.SkipWithError("the document did not come out whole: is the disk full?");
            return;
        }
    }
    state.counters["peak MiB"] = memory.mebibytes();
    state.SetBytesProcessed(state.iterations() * state.range(0) * static_cast<std::int64_t>(MIB));
}

void PlainFile(benchmark::State& state) {
    largeDocument(state, false);
}

void EncryptedFile(benchmark::State& state) {
    largeDocument(state, true);
}

void RawFile(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0)) * MIB;
    std::vector<char> buffer(PIECE);
    for (auto _ : state) {
        std::string name = temporaryDirectory() + "/mrl-bench-XXXXXX";
        const int file = ::mkstemp(name.data());
        std::size_t done = 0;
        while (done < size && ::write(file, unpackableBytes().data(), PIECE) == static_cast<ssize_t>(PIECE)) {
            done += PIECE;
        }
        ::lseek(file, 0, SEEK_SET);
        std::size_t back = 0;
        for (ssize_t got = 0; (got = ::read(file, buffer.data(), PIECE)) > 0;) {
            benchmark::DoNotOptimize(buffer.data());
            back += static_cast<std::size_t>(got);
        }
        ::close(file);
        ::unlink(name.c_str());
        if (back != size) {
            state.SkipWithError("the file did not come back whole: is the disk full?");
            return;
        }
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) * static_cast<std::int64_t>(MIB));
}

void large(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1024)->Iterations(1)->Repetitions(5)->Unit(benchmark::kMillisecond);
}

BENCHMARK(SmallDocument)->Arg(100)->Arg(290)->Repetitions(5);
BENCHMARK(SmallCopy)->Arg(100)->Arg(290)->Repetitions(5);
BENCHMARK(RawFile)->Apply(large);
BENCHMARK(PlainFile)->Apply(large);
BENCHMARK(EncryptedFile)->Apply(large);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    MRLDocIo::initialize();
    mrl::bench::Ratios ratios;
    ratios.compare("SmallDocument", "SmallCopy");
    ratios.compare("PlainFile", "RawFile", 1 / 0.7);
    ratios.compare("EncryptedFile", "RawFile", 1 / 0.5);
    benchmark::RunSpecifiedBenchmarks(&ratios);
    MRLDocIo::terminate();
    return 0;
}
