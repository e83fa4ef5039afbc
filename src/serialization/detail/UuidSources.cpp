#include "serialization/detail/UuidSources.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <sys/auxv.h>
#include <sys/random.h>
#include <sys/resource.h>
#include <sys/sysinfo.h>
#include <unistd.h>

namespace mrl::detail {

namespace {

constexpr std::uint64_t FILE_TIME_OF_1970 = 116'444'736'000'000'000; // 100 ns since 1601

UuidSources* s_replacement = nullptr; // borrowed

std::timespec now(clockid_t clock) {
    std::timespec time{};
    ::clock_gettime(clock, &time);
    return time;
}

std::uint64_t fact(int name) {
    const long value = ::sysconf(name);
    return value < 0 ? 0 : static_cast<std::uint64_t>(value);
}

void describe(UuidFacts::Memory& memory) {
    struct sysinfo system {};
    ::sysinfo(&system);
    const std::uint64_t unit = system.mem_unit;
    memory.length = sizeof(memory);
    memory.totalPhysical = system.totalram * unit;
    memory.freePhysical = system.freeram * unit;
    memory.totalSwappable = memory.totalPhysical + system.totalswap * unit;
    memory.freeSwappable = memory.freePhysical + system.freeswap * unit;
    if (memory.totalPhysical != 0) {
        memory.load = static_cast<std::uint32_t>(100 - memory.freePhysical * 100 / memory.totalPhysical);
    }
    rlimit addresses{};
    ::getrlimit(RLIMIT_AS, &addresses);
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    memory.totalAddresses = addresses.rlim_cur;
    memory.freeAddresses = memory.totalAddresses - static_cast<std::uint64_t>(usage.ru_maxrss) * 1024;
}

void describe(UuidFacts::Machine& machine) {
    machine.architecture = sizeof(void*);
    machine.pageSize = static_cast<std::uint32_t>(fact(_SC_PAGESIZE));
    // Where the loader put things differs from process to process.
    machine.lowestAddress = ::getauxval(AT_ENTRY);
    machine.highestAddress = ::getauxval(AT_SYSINFO_EHDR);
    const std::uint64_t online = fact(_SC_NPROCESSORS_ONLN);
    machine.activeProcessors = online >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << online) - 1;
    machine.processors = static_cast<std::uint32_t>(fact(_SC_NPROCESSORS_CONF));
    machine.processorType = static_cast<std::uint32_t>(::getauxval(AT_HWCAP));
    machine.granularity = machine.pageSize;
    machine.level = static_cast<std::uint16_t>(::getpid());
    machine.revision = static_cast<std::uint16_t>(::getppid());
}

} // namespace

std::uint64_t UuidSources::fileTime() {
    const std::timespec time = now(CLOCK_REALTIME);
    return FILE_TIME_OF_1970 + static_cast<std::uint64_t>(time.tv_sec) * 10'000'000 +
           static_cast<std::uint64_t>(time.tv_nsec) / 100;
}

bool UuidSources::random(void* bytes, std::size_t size) {
    ssize_t got = 0;
    do {
        got = ::getrandom(bytes, size, 0); // up to 256 bytes it gives all or none
    } while (got < 0 && errno == EINTR);
    return got == static_cast<ssize_t>(size);
}

void UuidSources::facts(UuidFacts& facts) {
    facts = {};
    describe(facts.memory);
    describe(facts.machine);
    facts.fileTime = fileTime();
    const std::timespec uptime = now(CLOCK_MONOTONIC);
    facts.counter = static_cast<std::uint64_t>(uptime.tv_sec) * 1'000'000'000 +
                    static_cast<std::uint64_t>(uptime.tv_nsec);
    facts.ticks = static_cast<std::uint32_t>(facts.counter / 1'000'000);
    ::gethostname(facts.computerName, sizeof(facts.computerName) - 1); // cut when it is longer
    random(facts.remainder, sizeof(facts.remainder));
}

UuidSources& UuidSources::get() {
    static UuidSources system;
    return s_replacement != nullptr ? *s_replacement : system;
}

void UuidSources::replace(UuidSources* sources) {
    s_replacement = sources;
}

} // namespace mrl::detail
