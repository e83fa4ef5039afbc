// What a host pays for loading libmrl: time and private memory, the libraries it stands on left out.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fstream>
#include <link.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int RUNS = 15;

struct Cost {
    double milliseconds = 0;
    long privateKilobytes = 0;
};

long privateKilobytes() {
    std::ifstream rollup("/proc/self/smaps_rollup");
    long sum = 0;
    for (std::string line; std::getline(rollup, line);) {
        if (line.starts_with("Private_Dirty:")) {
            sum += std::atol(line.c_str() + std::strlen("Private_Dirty:"));
        }
    }
    return sum;
}

/// The libraries that come along with `library`, in an order in which they can be loaded before it.
std::vector<std::string> companions(const char* library) {
    if (dlopen(library, RTLD_NOW) == nullptr) {
        std::fprintf(stderr, "bench_load: %s\n", dlerror());
        std::exit(1);
    }
    std::vector<std::string> found;
    dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* data) {
            static_cast<std::vector<std::string>*>(data)->emplace_back(info->dlpi_name);
            return 0;
        },
        &found);
    std::erase_if(found, [&](const std::string& name) {
        return name.empty() || name.find("/libmrl.so") != std::string::npos || name.starts_with("linux-vdso");
    });
    return found;
}

Cost measure(const char* library, const std::vector<std::string>& before) {
    for (const std::string& name : before) {
        dlopen(name.c_str(), RTLD_NOW | RTLD_GLOBAL);
    }
    const long start = privateKilobytes();
    const auto began = std::chrono::steady_clock::now();
    if (dlopen(library, RTLD_NOW) == nullptr) {
        std::exit(1);
    }
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - began;
    return {time.count(), privateKilobytes() - start};
}

/// Runs `step` in a process of its own, since a library is loaded only once in each.
template <class Step>
std::string inChild(Step step) {
    int ends[2];
    if (pipe(ends) != 0) {
        std::perror("bench_load: pipe");
        std::exit(1);
    }
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        const std::string result = step();
        _exit(write(ends[1], result.data(), result.size()) == static_cast<ssize_t>(result.size()) ? 0 : 1);
    }
    close(ends[1]);
    std::string result;
    char piece[4096];
    for (ssize_t n = 0; (n = read(ends[0], piece, sizeof piece)) > 0;) {
        result.append(piece, static_cast<std::size_t>(n));
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) {
        std::fprintf(stderr, "bench_load: a run failed\n");
        std::exit(1);
    }
    return result;
}

} // namespace

int main(int argc, char** argv) {
    // Options of the other benchmark programs mean nothing here.
    const char* const library = argc > 1 && argv[1][0] != '-' ? argv[1] : MRL_LIBRARY;
    const std::string names = inChild([&] {
        std::string lines;
        for (const std::string& name : companions(library)) {
            lines += name + '\n';
        }
        return lines;
    });
    std::vector<std::string> before;
    for (std::size_t begin = 0, end = 0; (end = names.find('\n', begin)) != std::string::npos;
         begin = end + 1) {
        before.push_back(names.substr(begin, end - begin));
    }

    std::vector<double> times;
    long kilobytes = 0;
    for (int run = 0; run < RUNS; ++run) {
        Cost cost;
        std::sscanf(inChild([&] {
                        const Cost measured = measure(library, before);
                        return std::to_string(measured.milliseconds) + " " +
                               std::to_string(measured.privateKilobytes);
                    }).c_str(),
                    "%lf %ld", &cost.milliseconds, &cost.privateKilobytes);
        times.push_back(cost.milliseconds);
        kilobytes = std::max(kilobytes, cost.privateKilobytes);
    }
    std::sort(times.begin(), times.end());
    std::printf("loading libmrl: %.2f ms (median of %d, least %.2f); target 5 ms\n", times[times.size() / 2],
                RUNS, times.front());
    std::printf("private memory: %.2f MiB; target 4 MiB\n", static_cast<double>(kilobytes) / 1024);
    return 0;
}
