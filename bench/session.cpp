// What a session's calls cost beside rivals that ask the same peer: gSOAP's and PHP's clients, and the bare
// exchange of the same bytes. Rivals take turns, round by round, on one kept-alive connection each; a figure
// is the best of the rounds, since all that disturbs a round makes it slower. Then what auditing, large
// bodies and an attachment of 1 GiB cost. MRL_BENCH_ATTACHMENT_MIB sets another size.
#include "Session/MRLDocIo.h"
#include "Session/MRLIPFLogger.h"
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLTavelHeader.h"
#include "session/Attachments.h"
#include "session/BareExchange.h"
#include "session/Query.h"
#include "support/FixedPeer.h"
#include "support/Heap.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCFGAPI/HBLConfigurationNames.h"
#include "HBLCore/HBLThrowable.h"
#include "HBLIDOM/HBLIDOM_Document.h"
#include "HBLIDOM/HBLIDOM_Parser.h"
#include "logipf2/LogIPFControl.h"

#ifdef MRL_WITH_GSOAP
#include "gsoap/SessionPeer.h"
#endif

#include <xercesc/util/PlatformUtils.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

using mrl::bench::FixedPeer;
using mrl::bench::HeapUse;
using mrl::bench::query;

namespace {

constexpr int ROUNDS = 9;
constexpr int CALLS = 1500;                          // a round
constexpr const char* AUDITED = "Audit.RTUsage.MRL"; // the one logger that is on
constexpr std::size_t SMALL_BODY = 1000;
constexpr std::size_t LARGE_BODY = 4'000'000;
constexpr long MANY_OBJECTS = 2000;

struct Round {
    double callsPerSecond = 0;
    double medianMicroseconds = 0;
};

/// A way to make calls, and what its rounds came to.
struct Client {
    std::string name;
    std::function<bool(Round&)> run; // false: the client cannot be used
    std::vector<Round> rounds;

    double callsPerSecond() const {
        double best = 0;
        for (const Round& round : rounds)
            best = std::max(best, round.callsPerSecond);
        return best;
    }
    double median() const {
        double best = rounds.front().medianMicroseconds;
        for (const Round& round : rounds)
            best = std::min(best, round.medianMicroseconds);
        return best;
    }
    /// How far the middle of the rounds lies from the best.
    double resolution() const {
        std::vector<double> rates;
        for (const Round& round : rounds)
            rates.push_back(round.callsPerSecond);
        std::ranges::sort(rates);
        return rates.back() / rates[rates.size() / 2] - 1;
    }
};

bool timeCalls(Round& round, const std::function<bool()>& call) {
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    times.reserve(CALLS);
    const auto began = Clock::now();
    for (int i = 0; i < CALLS; ++i) {
        const auto before = Clock::now();
        if (!call())
            return false;
        times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - before).count());
    }
    round.callsPerSecond = CALLS / std::chrono::duration<double>(Clock::now() - began).count();
    std::ranges::nth_element(times, times.begin() + CALLS / 2);
    round.medianMicroseconds = times[CALLS / 2];
    return true;
}

std::function<bool(Round&)> timed(std::function<bool()> call) {
    return [call = std::move(call)](Round& round) { return timeCalls(round, call); };
}

/// A round of PHP's client, which times itself in a process of its own.
bool runPhp(const std::string& url, Round& round) {
    const std::string command = "php '" MRL_BENCH_DIRECTORY "/php/session.php' '" MRL_BENCH_WSDL "' '" + url +
                                "' " + std::to_string(CALLS) + " 2>/dev/null";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> php(::popen(command.c_str(), "r"), &::pclose);
    double seconds = 0;
    char name[64] = "";
    if (!php || std::fscanf(php.get(), "%lf %lf %63[^\n]", &seconds, &round.medianMicroseconds, name) != 3 ||
        name != std::string(mrl::bench::s_reportName))
        return false;
    round.callsPerSecond = CALLS / seconds;
    return true;
}

/// A figure beside its target.
void compare(const char* what, double figure, const char* relation, double target) {
    const bool isMet = *relation == '<' ? figure <= target : figure >= target;
    std::printf("%-62s %9.2f  %s %-6.3g %s\n", what, figure, relation, target, isMet ? "met" : "MISSED");
}

/// A temporary directory that is the current one: for the log, its configuration, the echo files, documents.
class Workplace {
public:
    Workplace() {
        if (::mkdtemp(m_path.data()) == nullptr || ::chdir(m_path.c_str()) != 0) {
            std::perror("bench_session: temporary directory");
            std::exit(1);
        }
        ::setenv(LogIPFControl::s_locationVariable, (m_path + "/mrllogging.json").c_str(), 1);
        log(false);
        const std::string text = std::string("<p:parameters xmlns:p='") + HBLConfigurationNames::s_namespace +
                                 "'><p:parameter name='temp'><p:value>" + m_path +
                                 "</p:value></p:parameter></p:parameters>";
        HBLIDOM_Document document;
        HBLIDOM_Parser().parse(text.data(), text.size(), document);
        HBLConfigurationFactory::getInstance().configure(document.getDocumentElement());
    }
    ~Workplace() {
        MRLIPFLogger::terminate();
        std::error_code none;
        std::filesystem::remove_all(m_path, none);
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    const std::string& path() const { return m_path; }
    /// From here on all is logged, at level 10000, or nothing.
    void log(bool isOn) const {
        MRLIPFLogger::terminate();
        std::ofstream("mrllogging.json")
            << R"({"sinks": {"file": {"type": "file", "path": "log"}}, "loggers": {)"
            << (isOn ? std::string("\"") + AUDITED + R"(": {"level": 10000, "sinks": ["file"]})" : "")
            << "}}";
        MRLIPFLogger::initialize();
    }
    std::string read(const char* file) const {
        std::ostringstream text;
        text << std::ifstream(m_path + "/" + file).rdbuf();
        return text.str();
    }

private:
    std::string m_path = (std::filesystem::temp_directory_path() / "mrl-bench-XXXXXX").string();
};

/// A session for one path of the peer.
class Caller {
public:
    Caller(const FixedPeer& peer, const std::string& path) { m_session.setURI(peer.url(path)); }
    const MRLSOAPSession& session() const { return m_session; }
    bool ask() const { return query(m_session) == mrl::bench::s_reportName; }

private:
    MRLTavelHeader m_header;
    MRLSOAPSession m_session{&m_header, nullptr, nullptr, nullptr, nullptr, "bench"};
};

class Session {
public:
    Session(const FixedPeer& peer, const Workplace& place)
        : m_peer(peer)
        , m_place(place)
        , m_caller(peer, "/small") {}

    void calls() {
        m_place.log(true);
        m_caller.ask();
        m_place.log(false);
        const std::string echo = m_place.read("taveltk_client_echo.txt");
        // Exactly what the toolkit sends.
        mrl::bench::BareExchange bare(m_peer.port(), echo.substr(0, echo.find("HTTP/1.1 200")));
        std::vector<Client> clients;
        clients.push_back({"toolkit", timed([&] { return m_caller.ask(); }), {}});
        clients.push_back(
            {"HTTPClientSession, same bytes", timed([&] { return bare.byClientSession(); }), {}});
        clients.push_back({"StreamSocket, same bytes", timed([&] { return bare.bySocket(); }), {}});
        clients.push_back({"toolkit, audit level 10000",
                           [&](Round& round) {
                               m_place.log(true);
                               const bool isGood = timeCalls(round, [&] { return m_caller.ask(); });
                               m_place.log(false);
                               return isGood;
                           },
                           {}});
#ifdef MRL_WITH_GSOAP
        mrl::bench::GsoapClient gsoap(m_peer.url("/small"));
        clients.push_back(
            {"gSOAP",
             timed([&] { return gsoap.query(mrl::bench::s_searchPath) == mrl::bench::s_reportName; }),
             {}});
#else
        std::puts("gSOAP: left out, it was not there when this was built (setup --bench installs it)");
#endif
        clients.push_back(
            {"PHP's SoapClient", [this](Round& round) { return runPhp(m_peer.url("/small"), round); }, {}});

        for (int round = 0; round < ROUNDS; ++round)
            std::erase_if(clients, [](Client& client) {
                Round result;
                const bool isUsable = client.run(result);
                client.rounds.push_back(result);
                if (!isUsable)
                    std::printf("%s: left out, a call did not work (setup --bench installs it)\n",
                                client.name.c_str());
                return !isUsable;
            });

        std::printf("%-32s %10s %12s %12s\n", "small query, one connection", "calls/s", "median us",
                    "resolution");
        std::map<std::string, const Client*> byName;
        for (const Client& client : clients) {
            std::printf("%-32s %10.0f %12.1f %10.0f %%\n", client.name.c_str(), client.callsPerSecond(),
                        client.median(), 100 * client.resolution());
            byName[client.name] = &client;
        }
        std::puts("");
        const auto rates = [&](const char* what, const char* figure, const char* rival, double target) {
            if (byName.contains(figure) && byName.contains(rival))
                compare(what, byName[figure]->callsPerSecond() / byName[rival]->callsPerSecond(),
                        ">=", target);
        };
        rates("calls/s, toolkit / gSOAP", "toolkit", "gSOAP", 1);
        rates("calls/s, toolkit / PHP's SoapClient", "toolkit", "PHP's SoapClient", 5);
        rates("calls/s, audit level 10000 / no audit", "toolkit, audit level 10000", "toolkit", 0.6);
        compare("median call, toolkit / HTTPClientSession",
                byName.at("toolkit")->median() / byName.at("HTTPClientSession, same bytes")->median(),
                "<=", 1.5);
        compare("median call, toolkit / StreamSocket",
                byName.at("toolkit")->median() / byName.at("StreamSocket, same bytes")->median(), "<=", 1.5);
    }

    void heap() const {
        const std::string text(LARGE_BODY, 'x');
        const double request =
            peakOf("/small", text.c_str()) - peakOf("/small", text.substr(0, SMALL_BODY).c_str());
        const double reply = // both beyond every buffer
            peakOf("/more-blanks", mrl::bench::s_searchPath) - peakOf("/blanks", mrl::bench::s_searchPath);
        compare("peak heap for each byte more of the request", request / (LARGE_BODY - SMALL_BODY),
                "<=", 0.01);
        compare("peak heap for each byte more of the reply that is no object", reply / LARGE_BODY,
                "<=", 0.01);

        const Caller few(m_peer, "/small");
        const Caller many(m_peer, "/many");
        few.ask();
        many.ask();
        const auto cost = [](const auto& step) {
            const HeapUse use;
            [[maybe_unused]] const auto kept = step();
            return std::pair(static_cast<double>(use.allocations()), static_cast<double>(use.peak()));
        };
        const auto [fewCount, fewBytes] = cost([&] { return few.ask(); });
        const auto [manyCount, manyBytes] = cost([&] { return many.ask(); });
        const auto [count, bytes] = cost([&] { return mrl::bench::replyOf(MANY_OBJECTS); });
        compare("allocations for an object of a reply / made by hand", (manyCount - fewCount) / count,
                "<=", 1.05);
        compare("peak heap for an object of a reply / made by hand", (manyBytes - fewBytes) / bytes,
                "<=", 1.05);
    }

    void attachments(std::size_t size) const {
        const mrl::bench::LargeDocument document(m_place.path(), size);
        const Caller up(m_peer, "/small");
        const Caller down(m_peer, "/attachment");
        mrl::bench::Transfer best[4];
        double peak = 0;
        for (int round = 0; round < 3; ++round) {
            const mrl::bench::Transfer now[4] = {
                document.up(up.session()), document.bareUp(m_peer.port(), "/small"),
                document.down(down.session()), document.bareDown(m_peer.port(), "/attachment")};
            for (int i = 0; i < 4; ++i)
                if (now[i].mebibytesPerSecond > best[i].mebibytesPerSecond)
                    best[i] = now[i];
            peak = std::max({peak, now[0].peakMebibytes, now[2].peakMebibytes});
        }
        std::printf(
            "\nattachment of %zu MiB, file to file: up %.0f MiB/s (bare sockets %.0f), down %.0f MiB/s "
            "(bare sockets %.0f)\n\n",
            size / 1024 / 1024, best[0].mebibytesPerSecond, best[1].mebibytesPerSecond,
            best[2].mebibytesPerSecond, best[3].mebibytesPerSecond);
        compare("attachment up, MiB/s, toolkit / bare sockets",
                best[0].mebibytesPerSecond / best[1].mebibytesPerSecond, ">=", 0.6);
        compare("attachment down, MiB/s, toolkit / bare sockets",
                best[2].mebibytesPerSecond / best[3].mebibytesPerSecond, ">=", 0.6);
        compare("peak memory of both, MiB", peak, "<=", 64);
    }

private:
    /// The most that one call holds over what its request and the process hold anyway.
    double peakOf(const std::string& path, const char* searchPath) const {
        const Caller caller(m_peer, path);
        query(caller.session(), searchPath); // what is made once
        const mrl::bench::Binding call = mrl::bench::smallQuery(searchPath);
        const HeapUse use;
        caller.session().submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
        return static_cast<double>(use.peak());
    }

    const FixedPeer& m_peer;
    const Workplace& m_place;
    Caller m_caller;
};

std::size_t attachmentSize() {
    const char* const mebibytes = std::getenv("MRL_BENCH_ATTACHMENT_MIB");
    return (mebibytes ? std::strtoul(mebibytes, nullptr, 10) : 1024) * 1024 * 1024;
}

} // namespace

// Options of the other benchmark programs mean nothing here.
int main() {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    xercesc::XMLPlatformUtils::Initialize();
    const std::size_t size = attachmentSize();
    const FixedPeer peer({
        {"/small", {mrl::bench::envelopeOf(1)}},
        {"/blanks", {mrl::bench::envelopeOf(1, LARGE_BODY)}},
        {"/more-blanks", {mrl::bench::envelopeOf(1, 2 * LARGE_BODY)}},
        {"/many", {mrl::bench::envelopeOf(MANY_OBJECTS)}},
        {"/attachment", {mrl::bench::envelopeWithAttachment(FixedPeer::s_contentId), size}},
    });
    const Workplace place;
    MRLDocIo::initialize();
    int result = 0;
    try {
        Session session(peer, place);
        session.calls();
        std::puts("");
        session.heap();
        session.attachments(size);
    } catch (HBLThrowable& e) {
        std::fprintf(stderr, "bench_session: %s\n", e.toString());
        result = 1;
    }
    MRLDocIo::terminate();
    return result;
}
