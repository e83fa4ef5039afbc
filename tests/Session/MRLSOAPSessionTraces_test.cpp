// Each way through a session: every call on the bus and every record of the log, in their one order, and what
// a failure passes on its way out. The traces are files that were worked out by hand.
#include "Replies.h"
#include "Session/MRLDocIo.h"
#include "Session/MRLDocumentOutput.h"
#include "Session/MRLSOAPSession.h"
#include "Session/MRLServiceCallbackI.h"
#include "Session/MRLTestInfo.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/FakeBus.h"
#include "support/Files.h"
#include "support/KeyStore.h"
#include "support/LogHarness.h"
#include "support/Rows.h"
#include "support/TemporaryDirectory.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQOutputStream.h"
#include "TavelTK/TavelTKException.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <functional>

using mrl::test::answer;
using mrl::test::FakeBus;
using mrl::test::fault;

namespace {

constexpr const char* EVERYTHING =
    R"({"sinks": {"all": {"type": "file", "path": "log"}},
        "loggers": {"Audit": {"level": 10000, "sinks": ["all"]}, "Perf": {"level": "off", "sinks": ["all"]}}})";

/// The documents' buffers.
struct Buffers {
    Buffers() { MRLDocIo::initialize(); }
    ~Buffers() { MRLDocIo::terminate(); }
};

/// A call with all that may be set up for it.
struct Way {
    const Buffers buffers;
    FakeBus bus;
    MRLTavelHeader header;
    HBLSmartPointer<MRLTestInfo> testInfo{MRLTestInfo::create()};
    MRLSOAPSession session{&header, nullptr, testInfo.get(), nullptr, nullptr, "test"};
    mrl::test::TemporaryDirectory files;
    MRLDocumentOutput plain, packed;
    MRLAttachmentList attachments;
    MRLSOAPSession::MRLSOAPTrusted trusted = MRLSOAPSession::eMRLSOAPUntrusted;
    const MRLServiceCallbackI* callback = nullptr;

    /// An exchange whose `operation` fails with a code of the transport.
    void fail(const std::string& operation, int code) {
        bus.script({"", [=](const std::string& called) {
                        if (called == operation) {
                            HBL_THROW(TavelTKException(code), "test");
                        }
                    }});
    }
};

struct Path {
    const char* name; // of the file with its trace
    std::function<void(Way&)> prepare;
};
void PrintTo(const Path& path, std::ostream* out) {
    *out << path.name;
}

struct Service final : MRLServiceCallbackI {
    void handleRequest(MRLPortTypeBinding&, PLQOutputStream& out) const override {
        bus->beforeEach();
        bus->calls.emplace_back("handleRequest");
        out.write(reply.data(), reply.size());
    }
    FakeBus* bus = nullptr;
    std::string reply;
};
Service s_service;

void attach(Way& way, MRLDocumentOutput& document, bool isPacked, const char* id) {
    document.init(0, isPacked ? 1 : 0);
    document.setMimeType(isPacked ? "text/csv" : "text/plain", isPacked ? "8bit" : nullptr);
    document.write("a document");
    way.attachments.emplace_back(id, &document);
}

/// A record in short: level, operation, status, and what is said of a retry.
std::string shortened(const std::string& line) {
    const auto record = nlohmann::json::parse(line);
    std::string text =
        "audit " + std::to_string(record["level"].get<int>()) + " " + record["operation"].get<std::string>();
    if (record.contains("status")) {
        text += " " + record["status"].get<std::string>();
    }
    const std::string data = record["logData"];
    const std::size_t note = data.rfind(" ---- ");
    return note == std::string::npos ? text : text + data.substr(note);
}

class Traced : public WithStore, public testing::WithParamInterface<Path> {};

TEST_P(Traced, GoesItsOwnWayStepByStep) {
    writeStore(KNOWN_STORE);
    const mrl::test::LogHarness log(EVERYTHING);
    Way way;
    std::size_t seen = 0;
    const auto takeRecords = [&] {
        for (const auto lines = log.lines(); seen < lines.size(); ++seen) {
            way.bus.calls.push_back(shortened(lines[seen]));
        }
    };
    way.bus.beforeEach = takeRecords;
    way.session.setURI("http://bus.example/");
    s_service.bus = &way.bus;
    s_service.reply = answer("myself");
    GetParam().prepare(way);

    const mrl::test::TextCall call;
    std::string end;
    std::vector<std::string> passed;
    try {
        way.session.submit(*call.binding, way.attachments, way.trusted, way.callback);
        end = "result " + call.result();
    } catch (const HBLThrowable& e) {
        end = "threw " + std::string(e.getThrowableName());
        passed = e.getBackTrace();
    }
    takeRecords();
    std::string trace;
    for (const std::string& step : way.bus.calls) {
        trace += step + "\n";
    }
    for (const std::string& request : way.bus.requests) {
        trace += request.starts_with("<trustedRequest") ? "sent encrypted\n" : "sent in clear\n";
    }
    for (const std::string& file : way.files.files()) {
        trace += "file " + file + "\n";
    }
    trace += end + "\n";
    for (const std::string& line : passed) {
        if (const std::size_t at = line.find("MRLSOAPSession::"); at != std::string::npos) {
            trace += "thrown past " + line.substr(at) + "\n";
        }
    }
    EXPECT_EQ(mrl::test::golden("traces/" + std::string(GetParam().name) + ".txt"), trace);
    EXPECT_EQ(nullptr, call.binding->getInputMessage().getTavelHeader(nullptr));
    EXPECT_EQ(0, way.bus.live);
}

const Path PATHS[] = {{"plain", [](Way& way) { way.bus.answer(answer("cm")); }},
                      {"attachments",
                       [](Way& way) {
                           attach(way, way.plain, false, "one");
                           attach(way, way.packed, true, "two");
                           way.bus.answer(answer("cm"));
                       }},
                      {"retry",
                       [](Way& way) {
                           way.fail("openEnvelope(reply)", 6);
                           way.bus.answer(answer("cm"));
                       }},
                      {"trusted",
                       [](Way& way) {
                           way.trusted = MRLSOAPSession::eMRLSOAPTrusted;
                           way.bus.answer(answer("cm"));
                       }},
                      {"trusted_on_denial",
                       [](Way& way) {
                           way.trusted = MRLSOAPSession::eMRLSOAPTrustedOnDenial;
                           way.bus.answer(fault("cmNoPermission"));
                           way.bus.answer(answer("cm"));
                       }},
                      {"loopback", [](Way& way) { way.callback = &s_service; }},
                      {"loopback_fault",
                       [](Way& way) {
                           s_service.reply = fault("cmNoRead");
                           way.callback = &s_service;
                       }},
                      {"recording",
                       [](Way& way) {
                           way.session.setRecordingBaseDir(way.files.path().c_str());
                           way.bus.answer(answer("cm"));
                       }},
                      {"playback", // which goes before a service of the own process
                       [](Way& way) {
                           const std::string call = way.files.path() + "/contentManagerService.0-"
                                                                       "contentGetActiveContentManager_";
                           std::ofstream(call + "Request.xml") << "any";
                           std::ofstream(call + "Reply.xml") << answer("cm");
                           way.session.setPlaybackBaseDir(way.files.path().c_str());
                           way.callback = &s_service;
                       }},
                      {"recorded_denial", // which takes a number of its own
                       [](Way& way) {
                           attach(way, way.plain, false, "one");
                           way.session.setRecordingBaseDir(way.files.path().c_str());
                           way.trusted = MRLSOAPSession::eMRLSOAPTrustedOnDenial;
                           way.bus.answer(fault("cmNoWrite"));
                           way.bus.answer(answer("cm"));
                       }},
                      {"retried_fault",
                       [](Way& way) {
                           way.fail("openEnvelope(reply)", 6);
                           way.bus.answer(fault("cmNoRead"));
                       }},
                      {"malformed", [](Way& way) { way.bus.answer("<half"); }},
                      {"fault", [](Way& way) { way.bus.answer(fault("cmNoRead")); }},
                      {"transport_failure", [](Way& way) { way.fail("openEnvelope(reply)", 7); }},
                      {"send_failure", [](Way& way) { way.fail("closeEnvelope", 6); }}};
INSTANTIATE_TEST_SUITE_P(Session, Traced, testing::ValuesIn(PATHS), mrl::test::nameOfRow);

} // namespace
