#include "MRLVersion.h"
#include "Session/MRL.h"
#include "http/BusServer.h"
#include "soap/RequestProcessor.h"
#include "store/ContentStore.h"

#include "HBLCore/HBLThrowable.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <string>

namespace {

using namespace mrl::bus;

constexpr int wrongUsage = 2;

struct Options {
    ServerSettings server;
    StoreSettings store;
    ServiceSettings services;
    std::int64_t sessionSeconds = 3600;
    std::int64_t reportMilliseconds = 200;
};

/// Blocks the signals that end the bus, in this thread and those it will start: they wait for `wait`, and
/// nothing runs in a signal handler.
class EndSignals {
public:
    EndSignals() {
        sigemptyset(&m_set);
        sigaddset(&m_set, SIGINT);
        sigaddset(&m_set, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &m_set, nullptr);
        std::signal(SIGPIPE, SIG_IGN); // a client that goes away is no reason to end
    }

    void wait() const {
        int received = 0;
        sigwait(&m_set, &received);
    }

private:
    sigset_t m_set{};
};

void run(const Options& options) {
    const EndSignals signals;
    ContentStore store(options.store);
    MRL::initialize();
    RequestProcessor processor(store, options.services);
    BusServer server(processor, options.server);
    std::printf("mrl-bus: listening on %s\n", server.url().c_str());
    std::fflush(stdout);
    signals.wait();
    server.stop();
    MRL::terminate();
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("A bus of content services for trying and testing clients. Stops on SIGTERM or SIGINT.",
                 "mrl-bus");
    app.add_option("--host", options.server.host, "Address to listen on")->capture_default_str();
    app.add_option("--port", options.server.port, "Port to listen on; 0 for any free one")
        ->check(CLI::Range(0, 65535))
        ->capture_default_str();
    app.add_option("--threads", options.server.threads, "Requests served at a time")
        ->check(CLI::Range(1, 256))
        ->capture_default_str();
    app.add_option("--store", options.store.file, "File to keep the content in; in memory without it");
    app.add_flag("--empty", options.store.empty, "Begin a new store without the sample content");
    app.add_flag("--read-only", options.store.readOnly, "Refuse every change of the content");
    app.add_option("--session-time", options.sessionSeconds, "Seconds after which an unused passport expires")
        ->check(CLI::Range(1, 1000000))
        ->capture_default_str();
    app.add_option("--report-time", options.reportMilliseconds,
                   "Milliseconds that each report works, for clients that are to wait")
        ->check(CLI::Range(0, 600000))
        ->capture_default_str();
    app.set_version_flag("--version", std::string("mrl-bus ") + mrlVersion(), "Print the version and exit");
    app.footer("Exit codes: 0 stopped by a signal, 1 it could not begin, 2 wrong usage.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& e) { // help, or the version
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        std::fprintf(stderr, "mrl-bus: %s\nmrl-bus: `mrl-bus --help` tells what there is\n", e.what());
        return wrongUsage;
    }
    options.services.passports.idleTime = std::chrono::seconds(options.sessionSeconds);
    options.services.conversations.workTime = std::chrono::milliseconds(options.reportMilliseconds);
    try {
        run(options);
        return 0;
    } catch (const HBLThrowable& e) {
        std::fprintf(stderr, "mrl-bus: %s\n", e.getMessage());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "mrl-bus: %s\n", e.what());
    }
    return 1;
}
