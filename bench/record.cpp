// What recording adds to a small call: the same call over the real bus on the loopback device, beside itself
// without a recording. The peer answers at once, so that nothing hides what recording costs.
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLContentGetActiveContentManager_Reply.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/Ratios.h"

#include "HBLCore/HBLSmartPointer.h"

#include <xercesc/util/PlatformUtils.hpp>

#include <cstdlib>
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

/// @param directory null for no recording.
void calls(benchmark::State& state, const char* directory) {
    static const Peer peer;
    const MRLTavelHeader header;
    MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "bench");
    session.setURI(peer.url());
    session.setRecordingBaseDir(directory);
    call(session); // connects
    int recorded = 0;
    for (auto _ : state) {
        if (directory != nullptr && ++recorded % 1000 == 0)
            session.setRecordingBaseDir(directory); // counts anew: a day's files are not the point
        call(session);
    }
}

void Plain(benchmark::State& state) {
    calls(state, nullptr);
}

void Recorded(benchmark::State& state) {
    std::string directory = (std::filesystem::temp_directory_path() / "mrl-bench-XXXXXX").string();
    if (::mkdtemp(directory.data()) == nullptr) {
        state.SkipWithError("no temporary directory");
        return;
    }
    calls(state, directory.c_str());
    std::filesystem::remove_all(directory);
}

// Alternating, so that what disturbs the machine disturbs both.
void turns(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1)->MinTime(0.3)->Repetitions(7)->UseRealTime();
}

BENCHMARK(Plain)->Apply(turns);
BENCHMARK(Recorded)->Apply(turns);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    xercesc::XMLPlatformUtils::Initialize();
    mrl::bench::Ratios reporter;
    reporter.compare("Recorded", "Plain", 1.15);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
