// Many calls of many threads while the bus is killed and started again; run by `make torture`.
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLTavelHeader.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "TavelTK/TavelTKException.h"

#include <Poco/Net/ServerSocket.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr int THREADS = 16;

pid_t startBus(const std::string& program, const std::string& port) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (std::freopen("/dev/null", "w", stdout) == nullptr) {
            ::_exit(126);
        }
        ::execl(program.c_str(), program.c_str(), "--port", port.c_str(), nullptr);
        ::_exit(127);
    }
    return child;
}

void killBus(pid_t bus) {
    ::kill(bus, SIGKILL);
    ::waitpid(bus, nullptr, 0);
}

long residentKiB() {
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return pages * (::sysconf(_SC_PAGESIZE) / 1024);
}

long descriptors() {
    const std::filesystem::directory_iterator open("/proc/self/fd");
    return std::distance(begin(open), end(open));
}

class Tally {
public:
    void count(const std::string& how) {
        const std::lock_guard lock(m_mutex);
        ++m_ends[how];
    }
    const std::map<std::string, long>& ends() const { return m_ends; }

private:
    std::mutex m_mutex;
    std::map<std::string, long> m_ends;
};

/// A query whose reply holds objects of several classes.
std::string callOnce(const MRLSOAPSession& session) {
    try {
        const HBLSmartPointer<MRLPortTypeBinding> call(
            MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
                MRLMessageI::eMRLContentQuery_Request));
        auto& request = static_cast<MRLContentQuery_Request&>(call->getInputMessage());
        request.getSearchPath(&request.getObjectRegistry())->setValue("/content/*");
        session.submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
        const auto& reply = static_cast<MRLContentQuery_Reply&>(call->getOutputMessage());
        return reply.getResult() != nullptr && !reply.getResult()->empty()
                   ? "reply"
                   : "unexpected: a reply without objects";
    } catch (TavelTKException& e) {
        if (e.getErrorCode() == 12) { // nobody there: give the bus a moment, or all calls are refused
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return e.getErrorCodeString();
    } catch (HBLThrowable& e) {
        return std::string("unexpected ") + e.toString();
    } catch (...) {
        return "unexpected: of no kind of the toolkit";
    }
}

void run(const MRLSOAPSession& session, long calls, Tally& tally) {
    std::atomic<long> left = calls;
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&] {
            while (left-- > 0) {
                tally.count(callOnce(session));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// @return what is wrong, each in a line; empty when nothing is.
std::string torture(const std::string& program, long total) {
    const std::string port =
        std::to_string(Poco::Net::ServerSocket(Poco::Net::SocketAddress("127.0.0.1", 0)).address().port());
    MRLTavelHeader header;
    MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "torture");
    session.setURI("http://127.0.0.1:" + port + "/");
    pid_t bus = startBus(program, port);
    for (int wait = 0; wait < 100 && callOnce(session) != "reply"; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    Tally warm;
    run(session, total / 10, warm); // caches, the pool, the allocator's arenas
    const long memory = residentKiB();
    const long open = descriptors();

    std::atomic<bool> done = false;
    int kills = 0;
    std::thread killer([&] {
        while (!done) {
            std::this_thread::sleep_for(std::chrono::milliseconds(400));
            killBus(bus);
            bus = startBus(program, port);
            ++kills;
        }
    });
    Tally tally;
    run(session, total, tally);
    done = true;
    killer.join();
    killBus(bus);

    std::string wrong;
    long ended = 0;
    for (const auto& [how, count] : tally.ends()) {
        std::printf("%8ld %s\n", count, how.c_str());
        if (how.starts_with("unexpected")) {
            wrong += "an end that nobody expects: " + how + "\n";
        }
        ended += count;
    }
    std::printf("%d kills; resident %ld -> %ld KiB, descriptors %ld -> %ld\n", kills, memory, residentKiB(),
                open, descriptors());
    if (ended != total || !tally.ends().contains("reply")) {
        wrong += "not every call ended, or none with a reply\n";
    }
    if (residentKiB() > memory + memory / 4 || descriptors() > open + THREADS) {
        wrong += "memory or descriptors have grown\n";
    }
    return wrong;
}

} // namespace

int main(int argc, char** argv) {
    const long calls = argc == 3 ? std::atol(argv[2]) : 0;
    if (calls < 10) {
        std::fprintf(stderr, "usage: torture MRL-BUS CALLS    at least 10 calls\n");
        return 2;
    }
    const std::string wrong = torture(argv[1], calls);
    std::fprintf(stderr, "%s", wrong.c_str());
    return wrong.empty() ? 0 : 1;
}
