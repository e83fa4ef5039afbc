// What recording adds to a small call over the real bus on the loopback device. The rivals: the call without
// a recording, and the call with the same two files written beside it by bare system calls, which is what the
// file system takes for itself. The argument is the time that the peer works on a call, in microseconds: with
// 0 nothing hides what recording costs, 1000 is a service that answers quickly. TMPDIR chooses the file
// system.
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLContentGetActiveContentManager_Reply.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/Ratios.h"

#include "HBLCore/HBLSmartPointer.h"

#include <xercesc/util/PlatformUtils.hpp>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

const std::string REPLY =
    R"(<?xml version="1.0" encoding="UTF-8"?>)"
    R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" )"
    R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xs="http://www.w3.org/2001/XMLSchema">)"
    "<e:Body><r><result xsi:type='xs:string'>cm1</result></r></e:Body></e:Envelope>";

std::atomic<int> s_work = 0; // microseconds that the peer takes for a call

/// Answers every request of one kept-alive connection after the other with the same bytes.
class Peer {
public:
    Peer() {
        m_listener = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* const any = reinterpret_cast<sockaddr*>(&address);
        if (::bind(m_listener, any, length) != 0 || ::listen(m_listener, 4) != 0 ||
            ::getsockname(m_listener, any, &length) != 0) {
            std::perror("bench_record: listen");
            std::exit(1);
        }
        m_port = ntohs(address.sin_port);
        std::thread([this] { serve(); }).detach(); // ends with the program
    }
    std::string url() const { return "http://127.0.0.1:" + std::to_string(m_port) + "/bus"; }

private:
    void serve() const {
        const std::string answer =
            "HTTP/1.1 200 OK\r\nContent-Type: text/xml; charset=utf-8\r\nContent-Length: " +
            std::to_string(REPLY.size()) + "\r\n\r\n" + REPLY;
        for (;;) {
            const int connection = ::accept(m_listener, nullptr, nullptr);
            const int on = 1;
            ::setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
            std::string got;
            char piece[4096];
            for (ssize_t n = 0; (n = ::recv(connection, piece, sizeof piece, 0)) > 0;) {
                got.append(piece, static_cast<std::size_t>(n));
                if (got.find("</SOAP-ENV:Envelope>") == got.npos)
                    continue;
                got.clear();
                if (const int work = s_work; work > 0)
                    std::this_thread::sleep_for(std::chrono::microseconds(work));
                if (::send(connection, answer.data(), answer.size(), MSG_NOSIGNAL) < 0)
                    break;
            }
            ::close(connection);
        }
    }
    int m_listener = -1;
    unsigned m_port = 0;
};

void call(const MRLSOAPSession& session) {
    const HBLSmartPointer<MRLPortTypeBinding> binding(
        MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
            MRLMessageI::eMRLContentGetActiveContentManager_Request));
    session.submit(*binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
}

/// A directory for the files of one benchmark, gone at its end.
struct Directory {
    Directory()
        : path((std::filesystem::temp_directory_path() / "mrl-bench-XXXXXX").string()) {
        if (::mkdtemp(path.data()) == nullptr) {
            std::perror("bench_record: temporary directory");
            std::exit(1);
        }
    }
    ~Directory() { std::filesystem::remove_all(path); }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;
    std::string path;
};

/// Files of that many calls are kept; then the first are replaced.
constexpr int CALLS_KEPT = 1000;

void writeFile(const std::string& path, const std::string& bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (::write(file, bytes.data(), bytes.size()) < 0)
        std::perror("bench_record: write");
    ::close(file);
}

enum class Files { none, recorded, bare };

void calls(benchmark::State& state, Files files) {
    static const Peer peer;
    s_work = static_cast<int>(state.range(0));
    const Directory directory;
    const MRLTavelHeader header;
    MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "bench");
    session.setURI(peer.url());
    call(session); // connects
    const std::string request(1005, 'x');
    int made = 0;
    for (auto _ : state) {
        if (files == Files::recorded && made % CALLS_KEPT == 0)
            session.setRecordingBaseDir(directory.path.c_str());
        call(session);
        if (files == Files::bare) {
            const std::string name = directory.path + "/" + std::to_string(made % CALLS_KEPT);
            writeFile(name + "-request.xml", request);
            writeFile(name + "-reply.xml", REPLY);
        }
        ++made;
    }
}

void Plain(benchmark::State& state) {
    calls(state, Files::none);
}

void Recorded(benchmark::State& state) {
    calls(state, Files::recorded);
}

void BareFiles(benchmark::State& state) {
    calls(state, Files::bare);
}

void turns(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(0)->Arg(1000)->MinTime(0.2)->Repetitions(5)->UseRealTime();
}

BENCHMARK(Plain)->Apply(turns);
BENCHMARK(Recorded)->Apply(turns);
BENCHMARK(BareFiles)->Apply(turns);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    xercesc::XMLPlatformUtils::Initialize();
    mrl::bench::Ratios reporter;
    reporter.compare("Recorded", "BareFiles", 1.15);
    reporter.compare("Recorded", "Plain", 1.15);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
