// Many calls of many threads while the bus is killed and started again. Only in `make torture`.
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLTavelHeader.h"
#include "serialization/MRLSOAPFaultException.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"
#include "TavelTK/TavelTKException.h"

#include <Poco/Net/ServerSocket.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
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

std::string callOnce(const MRLSOAPSession& session) {
    try {
        const HBLSmartPointer<MRLPortTypeBinding> call(
            MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
                MRLMessageI::eMRLContentGetActiveContentManager_Request));
        session.submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
        return "reply";
    } catch (MRLSOAPFaultException&) { // as typed an answer as any; this bus does not offer the operation
        return "reply";
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

TEST(Torture, EveryCallEndsWhileTheBusComesAndGoes) {
    const char* const calls = std::getenv("MRL_TORTURE");
    const char* const program = std::getenv("MRL_BUS");
    if (calls == nullptr || program == nullptr) {
        GTEST_SKIP() << "for make torture";
    }
    const long total = std::atol(calls);
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

    long ended = 0;
    for (const auto& [how, count] : tally.ends()) {
        std::printf("%8ld %s\n", count, how.c_str());
        EXPECT_FALSE(how.starts_with("unexpected")) << how;
        ended += count;
    }
    std::printf("%d kills; resident %ld -> %ld KiB, descriptors %ld -> %ld\n", kills, memory, residentKiB(),
                open, descriptors());
    EXPECT_EQ(total, ended);
    EXPECT_GT(tally.ends().at("reply"), 0);
    EXPECT_LE(residentKiB(), memory + memory / 4);
    EXPECT_LE(descriptors(), open + THREADS);
}

} // namespace
