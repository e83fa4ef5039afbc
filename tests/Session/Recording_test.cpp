// What a recording session leaves on disk, and what a session that plays back answers from it.
#include "Common/MRLException.h"
#include "Common/MockTavelTK.h"
#include "Common/MockTavelTKMessageWriter.h"
#include "Common/MockTavelTKSession.h"
#include "Session/MRLDocIo.h"
#include "Session/MRLDocumentOutput.h"
#include "Session/MRLSOAPSession.h"
#include "Session/MRLServiceCallbackI.h"
#include "Session/MRLTestInfo.h"
#include "Session/Replies.h"
#include "Toolkit/MRLAgentServicePortType.h"
#include "Toolkit/MRLTavelHeader.h"
#include "serialization/MRLSOAPFaultException.h"
#include "support/Environment.h"
#include "support/Failure.h"
#include "support/FakeBus.h"
#include "support/Files.h"
#include "support/ScriptedPeer.h"
#include "support/TemporaryDirectory.h"

#include "HBLCore/HBLSmartPointer.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "PLQStreams/PLQStreamError.h"
#include "TavelTK/TavelTKException.h"

#include <gmock/gmock.h>

#include <fstream>

using mrl::test::answer;
using mrl::test::bytesOfFile;
using mrl::test::envelope;
using mrl::test::FakeBus;
using mrl::test::fault;
using mrl::test::TemporaryDirectory;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

namespace {

using Attachments = MRLAttachmentList;

void write(MRLDocumentOutput& document, const std::string& text) {
    document.init(0, 0);
    document.setMimeType("text/plain", nullptr);
    document.write(text);
}

struct Recording : testing::Test {
    Recording() {
        MRLDocIo::initialize();
        session.setURI("http://bus.example/");
    }
    ~Recording() override { MRLDocIo::terminate(); }

    std::string ask(const MRLServiceCallbackI* callback = nullptr, const Attachments& attachments = {},
                    MRLSOAPSession::MRLSOAPTrusted trusted = MRLSOAPSession::eMRLSOAPUntrusted) {
        return askOf(session, callback, attachments, trusted);
    }
    static std::string askOf(const MRLSOAPSession& session, const MRLServiceCallbackI* callback = nullptr,
                             const Attachments& attachments = {},
                             MRLSOAPSession::MRLSOAPTrusted trusted = MRLSOAPSession::eMRLSOAPUntrusted) {
        const mrl::test::TextCall call;
        session.submit(*call.binding, attachments, trusted, callback);
        return call.result();
    }
    void deleteHotList() {
        const HBLSmartPointer<MRLPortTypeBinding> call(
            MRLAgentServicePortType::getInstance().createPortTypeBinding(
                MRLMessageI::eMRLAgentDeleteHotList_Request));
        session.submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
    }
    std::string read(const std::string& name) const { return bytesOfFile(directory.path() + "/" + name); }

    TemporaryDirectory directory;
    MRLTavelHeader header;
    const HBLSmartPointer<MRLTestInfo> testInfo{MRLTestInfo::create()};
    MRLSOAPSession session{&header, nullptr, testInfo.get(), nullptr, nullptr, "test"};
};

constexpr const char* CM = "contentManagerService.";
constexpr const char* CM_REQUEST = "-contentGetActiveContentManager_Request.xml";
constexpr const char* CM_REPLY = "-contentGetActiveContentManager_Reply.xml";

std::string file(const char* kind, int number) {
    return CM + std::to_string(number) + kind;
}

TEST_F(Recording, LeavesExactlyTheBytesUnderNamesCountedForEachService) {
    FakeBus bus;
    session.setRecordingBaseDir(directory.path().c_str());
    for (const std::string& reply : {answer("one"), envelope("<r/>"), answer("three")})
        bus.answer(reply);
    EXPECT_EQ("one", ask());
    deleteHotList();
    EXPECT_EQ("three", ask());

    EXPECT_THAT(directory.files(),
                ElementsAre("agentService.0-agentDeleteHotList_Reply.xml",
                            "agentService.0-agentDeleteHotList_Request.xml", file(CM_REPLY, 0),
                            file(CM_REQUEST, 0), file(CM_REPLY, 1), file(CM_REQUEST, 1)));
    EXPECT_EQ(mrl::test::golden("agent_request.xml"), read("agentService.0-agentDeleteHotList_Request.xml"));
    EXPECT_EQ(envelope("<r/>"), read("agentService.0-agentDeleteHotList_Reply.xml"));
    EXPECT_EQ(bus.requests[2], read(file(CM_REQUEST, 1)));
    EXPECT_EQ(answer("three"), read(file(CM_REPLY, 1)));
    EXPECT_EQ(0, bus.live);

    const std::string slashed = directory.path() + "/";
    session.setRecordingBaseDir(slashed.c_str()); // counts from 0 again, replaces
    bus.answer(answer("four"));
    ask();
    EXPECT_EQ(answer("four"), read(file(CM_REPLY, 0)));
    EXPECT_EQ(6U, directory.files().size());
}

TEST_F(Recording, KeepsEveryAttachmentOfBothDirectionsInAFileOfItsOwn) {
    const std::string part = "\r\n--B\r\nContent-Type: text/csv\r\nContent-ID: <";
    ScriptedPeer peer({{reply("--B\r\nContent-Type: text/xml\r\nContent-ID: <e>\r\n\r\n" + answer("cm") +
                                  part + "a>\r\n\r\nname,total\n" + part + "b>\r\n\r\n" +
                                  std::string(1, '\0') + "\xff" + part + "c>\r\n\r\n\r\n--B--\r\n",
                              "200 OK", "multipart/related; boundary=B; start=\"<e>\"; type=\"text/xml\"")}});
    session.setURI(peer.url());
    session.setRecordingBaseDir(directory.path().c_str());
    const std::string large(100000, 'x');
    MRLDocumentOutput first;
    MRLDocumentOutput second;
    write(first, "first document");
    write(second, large);
    EXPECT_EQ("cm", ask(nullptr, {{"1", &first}, {"2", &second}}));

    const std::string request = "contentManagerService.0-contentGetActiveContentManager_Request.attachment";
    const std::string response = "contentManagerService.0-contentGetActiveContentManager_Reply_attachment";
    EXPECT_THAT(directory.files(), ElementsAre(file(CM_REPLY, 0), response, response + "2", response + "3",
                                               request, request + "2", file(CM_REQUEST, 0)));
    EXPECT_EQ("first document", read(request));
    EXPECT_EQ(large, read(request + "2"));
    EXPECT_EQ("name,total\n", read(response));
    EXPECT_EQ(std::string("\0\xff", 2), read(response + "2"));
    EXPECT_EQ("", read(response + "3"));
    EXPECT_EQ(answer("cm"), read(file(CM_REPLY, 0)));
}

TEST_F(Recording, HoldsTheWholeReplyThatCouldNotBeParsed) {
    FakeBus bus;
    session.setRecordingBaseDir(directory.path().c_str());
    const std::string reply = "<broken" + std::string(100000, ' ') + "the end";
    bus.answer(reply);
    EXPECT_THROW(ask(), MRLException);
    EXPECT_EQ(reply, read(file(CM_REPLY, 0)));
    EXPECT_EQ(0, bus.live);
}

TEST_F(Recording, RefusesToRepeatACallWhoseReplyBrokeOff) {
    FakeBus bus;
    session.setRecordingBaseDir(directory.path().c_str());
    bus.script({answer("late"), [](const std::string& operation) {
                    if (operation == "openEnvelope(reply)")
                        HBL_THROW(TavelTKException(6), "test");
                }});
    bus.answer(answer("never asked for"));
    expectAssert(
        [&] { ask(); },
        R"(HBL_ASSERT_NAMED(!m_pEchoTavelTKSession, "The getSession() method can only be called once.");)");
    EXPECT_EQ(0, bus.live);
    EXPECT_EQ("", read(file(CM_REPLY, 0)));
}

TEST_F(Recording, ThatCannotBeWrittenIsOneClearFailureAndGivesTheBusBack) {
    std::filesystem::create_symlink("/dev/full", directory.path() + "/" + file(CM_REQUEST, 0));
    for (const auto& [below, reason] :
         {std::pair{"/none", "No such file or directory"}, std::pair{"", "No space left on device"}}) {
        FakeBus bus;
        bus.answer(answer("cm"));
        const std::string base = directory.path() + below;
        session.setRecordingBaseDir(base.c_str());
        try {
            ask();
            ADD_FAILURE() << "nothing was thrown for " << reason;
        } catch (PLQStreamError& e) {
            EXPECT_THAT(e.getMessage(), HasSubstr(reason));
            EXPECT_THAT(e.getMessage(), HasSubstr("contentManagerService.0-"));
        }
        EXPECT_EQ(0, bus.live);
        session.setRecordingBaseDir(nullptr);
    }
}

TEST_F(Recording, AnEmptyDirectoryNameIsRefused) {
    FakeBus bus;
    session.setRecordingBaseDir("");
    try {
        ask();
        FAIL() << "nothing was thrown";
    } catch (const std::out_of_range& e) {
        EXPECT_STREQ("invalid string position", e.what());
    }
}

struct Service : MRLServiceCallbackI {
    void handleRequest(MRLPortTypeBinding&, PLQOutputStream& out) const override {
        ++calls;
        out.write(text.data(), text.size());
        if (fails)
            HBL_THROW(HBLIllegalStateError(0, "the service failed"), "test");
    }
    std::string text;
    bool fails = false;
    mutable int calls = 0;
};

TEST_F(Recording, TakesInCallsThatStayInTheProcess) {
    Service service;
    service.text = answer("myself");
    session.setRecordingBaseDir(directory.path().c_str());
    EXPECT_EQ("myself", ask(&service));
    EXPECT_THAT(read(file(CM_REQUEST, 0)), HasSubstr("<rns1:getActiveContentManager"));
    EXPECT_EQ(service.text, read(file(CM_REPLY, 0)));

    service.text = "begun";
    service.fails = true;
    EXPECT_THROW(ask(&service), HBLIllegalStateError);
    EXPECT_EQ("begun", read(file(CM_REPLY, 1)));

    session.setRecordingBaseDir(nullptr);
    service.fails = false;
    service.text.clear();
    EXPECT_THROW(ask(&service), MRLException) << "nothing is no reply";

    session.setPlaybackBaseDir(directory.path().c_str());
    EXPECT_EQ("myself", ask(&service)) << "the recording answers, not the service";
    EXPECT_EQ(3, service.calls);
}

TEST_F(Recording, AnswersAgainInTheSameOrderAndKeepsWhatIsSent) {
    {
        FakeBus bus;
        session.setRecordingBaseDir(directory.path().c_str());
        bus.answer(answer("one"));
        bus.answer(fault("cmNoRead"));
        ask();
        EXPECT_THROW(ask(), MRLSOAPFaultException);
    }
    const FakeBus unused; // any exchange would be noted
    session.setPlaybackBaseDir(directory.path().c_str());
    MRLDocumentOutput sent;
    write(sent, "sent again");
    EXPECT_EQ("one", ask(nullptr, {{"1", &sent}}));
    EXPECT_THROW(ask(nullptr, {}, MRLSOAPSession::eMRLSOAPTrustedOnDenial), HBLThrowable)
        << "a fault as recorded, and no second attempt";
    EXPECT_TRUE(unused.calls.empty());

    const auto& factories = testInfo->getSessionFactoriesCreatedFromRecordedFiles();
    ASSERT_EQ(2U, factories.size());
    EXPECT_EQ(directory.path() + "/" + file(CM_REQUEST, 0), factories[0]->getRequestFileFullPath());
    const auto& writer = factories[0]->getMockTavelTKSession().getMockTavelTKMessageWriter();
    const auto& message = dynamic_cast<PLQMemoryOutputStream&>(writer.getMessageOutputStream());
    EXPECT_EQ(read(file(CM_REQUEST, 0)), std::string(message.bytes(), message.length()));
    ASSERT_EQ(1U, writer.getAttachmentOutputStreams().size());
    EXPECT_STREQ("sent again", writer.getAttachmentOutputStreams()[0]->bytes());
}

TEST_F(Recording, FallsBackToTheDirectoryAboveWithTheSameNumberAndThenCountsAnew) {
    const std::string below = directory.path() + "/below";
    ASSERT_TRUE(std::filesystem::create_directory(below));
    std::ofstream(below + "/" + file(CM_REQUEST, 0));
    std::ofstream(below + "/" + file(CM_REPLY, 0)) << answer("below 0");
    std::ofstream(directory.path() + "/" + file(CM_REPLY, 1)) << answer("above 1");
    session.setPlaybackBaseDir(below.c_str());
    EXPECT_EQ("below 0", ask());
    EXPECT_EQ("above 1", ask());
    EXPECT_EQ("below 0", ask());
    EXPECT_EQ(3U, testInfo->getSessionFactoriesCreatedFromRecordedFiles().size());
    const std::string none = directory.path() + "/none";
    session.setPlaybackBaseDir(none.c_str());
    EXPECT_THROW(ask(), PLQStreamError) << "neither here nor above";
    EXPECT_EQ(3U, testInfo->getSessionFactoriesCreatedFromRecordedFiles().size());
}

/// The two variables, gone at the end.
struct Environment {
    Environment(const std::string& recorded, const std::string& played)
        : recording("MRL_RECORDING_DIR", recorded)
        , playback("MRL_PLAYBACK_DIR", played) {}
    mrl::test::Variable recording, playback;
};

TEST_F(Recording, IsAskedForByTheEnvironmentADirectoryForEachSession) {
    const std::string recorded = directory.path() + "/recorded";
    const std::string sent = directory.path() + "/sent";
    std::filesystem::create_directories(recorded + "/session-0001"); // of another process
    std::filesystem::create_directories(sent + "/session-0001");
    const auto newSession = [&] {
        auto made = std::make_unique<MRLSOAPSession>(&header, nullptr, nullptr, nullptr, nullptr, "test");
        made->setURI("http://bus.example/");
        return made;
    };
    {
        FakeBus bus;
        bus.answer(answer("one"));
        bus.answer(answer("two"));
        const Environment environment(recorded, "");
        const auto first = newSession();
        const auto second = newSession();
        EXPECT_EQ("one", askOf(*second));
        EXPECT_EQ("two", askOf(*first));
        const MRLSOAPSession deliberate(&header, nullptr, nullptr, sent.c_str(), nullptr, "test");
        EXPECT_FALSE(std::filesystem::exists(recorded + "/session-0004")) << "its own wish goes first";
    }
    EXPECT_EQ(answer("two"), bytesOfFile(recorded + "/session-0002/" + file(CM_REPLY, 0)));
    EXPECT_EQ(answer("one"), bytesOfFile(recorded + "/session-0003/" + file(CM_REPLY, 0)));

    const FakeBus unused;
    {
        const Environment environment(sent, recorded);
        const auto again = newSession();
        EXPECT_EQ("two", askOf(*again));
        expectFailure([&] { askOf(*again); }, msg::callNotRecorded,
                      {recorded + "/session-0002/" + file(CM_REPLY, 1)}, "MRLSOAPSession::submit");
    }
    EXPECT_TRUE(unused.calls.empty());
    for (const char* kind : {CM_REQUEST, CM_REPLY})
        EXPECT_EQ(bytesOfFile(recorded + "/session-0002/" + file(kind, 0)),
                  bytesOfFile(sent + "/session-0002/" + file(kind, 0)));
    EXPECT_FALSE(std::filesystem::exists(sent + "/session-0002/" + file(CM_REQUEST, 1)));

    const Environment environment("/no/such/directory", "");
    expectFailure([&] { newSession(); }, msg::recordingDirectoryNotMade,
                  {"/no/such/directory/session-0001", "No such file or directory"},
                  "MRLSOAPSession::MRLSOAPSession");
}

} // namespace
