// Files in use, with each call of the system for them failing once: what was lost is reported, no half is
// taken for a whole, and the next use is good.
#include "FailingCalls.h"
#include "Session/DocumentFixture.h"
#include "Session/MRLDocumentOutput.h"
#include "Session/MRLProperty.h"
#include "Session/MRLSOAPSession.h"
#include "Session/MRLTestInfo.h"
#include "Session/Replies.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/Environment.h"
#include "support/FakeBus.h"
#include "support/Files.h"
#include "support/KeyStore.h"
#include "support/LogHarness.h"
#include "support/ScriptedPeer.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLFmFile.h"
#include "TavelTK/Exchange.h"
#include "ZORCrypto/ZORFmFile.h"
#include "ZORCrypto/ZORKeyStore.h"
#include "logipf2/LogAuditIndication.h"
#include "logipf2/LogTypedLogger.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <thread>

using mrl::test::bytesOfFile;
using mrl::test::FailingCalls;
using mrl::test::TemporaryDirectory;

namespace {

/// A use of files, again and again.
class Use {
public:
    virtual ~Use() = default;
    /// What comes before and cannot fail.
    virtual void prepare() {}
    virtual void run() = 0;
    /// What holds after every run, also after one that has reported a failure.
    virtual void check(bool /*isDone*/) {}

protected:
    std::string path(const std::string& name = "file") const { return m_directory.path() + "/" + name; }
    [[noreturn]] static void report(const std::string& what) { throw std::runtime_error(what); }

    TemporaryDirectory m_directory;
};

std::string inNewUse(Use& use, long n, bool& isReached) {
    use.prepare();
    std::string how = "done";
    {
        const FailingCalls failing(n);
        try {
            use.run();
        } catch (HBLThrowable& e) {
            how = e.toString();
        } catch (const std::exception& e) {
            how = e.what();
        }
        isReached = FailingCalls::happened();
    }
    use.check(how == "done");
    return how;
}

class Echo : public Use {
public:
    explicit Echo(int flushEach)
        : m_flushEach(flushEach) {}

    void run() override {
        const SessionPtr exchange = session(*m_toolkit.factory, m_peer.url());
        exchange->echo(path().c_str(), "wb", m_flushEach);
        sendEnvelope(*exchange, "<e>" + std::string(20000, 'x') + "</e>");
        EXPECT_EQ(receiveEnvelope(*exchange), "<r/>");
    }
    void check(bool isDone) override {
        while (m_peer.open() > 1) { // one connection is kept
            std::this_thread::yield();
        }
        const std::string bytes = bytesOfFile(path());
        if (m_whole.empty()) {
            m_whole = bytes;
            EXPECT_TRUE(bytes.starts_with("POST ") && bytes.ends_with("<r/>"));
        }
        if (isDone && m_flushEach != 0) { // else the last piece may be lost, as documented
            EXPECT_EQ(m_whole, bytes);
        }
    }

private:
    int m_flushEach;
    std::string m_whole;
    ScriptedPeer m_peer{[](const std::string&) { return Answer{reply("<r/>")}; }};
    Toolkit m_toolkit;
};

class Recorded : public Use {
public:
    explicit Recorded(bool playsBack)
        : m_playsBack(playsBack) {
        m_session.setURI("http://bus.example/");
        m_attachment.init(0, 0);
        m_attachment.setMimeType("text/plain", nullptr);
        m_attachment.write("attached");
        if (playsBack) {
            m_session.setRecordingBaseDir(m_directory.path().c_str());
            ask();
            m_session.setRecordingBaseDir(nullptr);
        }
    }

    void prepare() override { // counts from 0 again
        m_playsBack ? m_session.setPlaybackBaseDir(m_directory.path().c_str())
                    : m_session.setRecordingBaseDir(m_directory.path().c_str());
    }
    void run() override { ask(); }
    void check(bool isDone) override {
        if (isDone) {
            const std::string name = path("contentManagerService.0-contentGetActiveContentManager_");
            EXPECT_TRUE(bytesOfFile(name + "Request.xml").ends_with("Envelope>\n") ||
                        bytesOfFile(name + "Request.xml").ends_with("Envelope>"));
            EXPECT_EQ(mrl::test::answer("cm"), bytesOfFile(name + "Reply.xml"));
            EXPECT_EQ("attached", bytesOfFile(name + "Request.attachment"));
        }
    }

private:
    void ask() {
        mrl::test::FakeBus bus;
        bus.answer(mrl::test::answer("cm"));
        const mrl::test::TextCall call;
        const auto live = [&] { return bus.live; };
        try {
            m_session.submit(*call.binding, {{"1", &m_attachment}}, MRLSOAPSession::eMRLSOAPUntrusted,
                             nullptr);
        } catch (...) {
            EXPECT_EQ(0, live());
            throw;
        }
        EXPECT_EQ(0, live());
        EXPECT_EQ("cm", call.result());
    }

    bool m_playsBack;
    mrl::test::Documents m_documents;
    MRLDocumentOutput m_attachment;
    MRLTavelHeader m_header;
    const HBLSmartPointer<MRLTestInfo> m_testInfo{MRLTestInfo::create()};
    MRLSOAPSession m_session{&m_header, nullptr, m_testInfo.get(), nullptr, nullptr, "test"};
};

class Log : public Use {
public:
    void prepare() override {
        mrl::test::LogHarness::pass(61000); // the operator may be told again, and the configuration looked at
        m_log.replace(configuration(++m_runs));
        testing::internal::CaptureStderr();
    }
    void run() override {
        for (int line = 0; line < 3; ++line) { // enough for a new file
            LogAuditIndication record("MRL", 7);
            record.setLogData(I18NString("record " + std::to_string(++m_written)));
            LogTypedLogger::getInstance("Audit", "LogAuditIndication")->log(&record);
        }
    }
    void check(bool isDone) override {
        EXPECT_TRUE(isDone) << "a log never fails a call";
        testing::internal::GetCapturedStderr();
        mrl::test::LogHarness::pass(1000);
        run(); // whatever was lost, this is not, and in the file that was asked for last
        int good = 0;
        for (const auto& entry : std::filesystem::directory_iterator(m_log.path(""))) {
            const std::string name = entry.path().filename().string();
            if (!name.starts_with("log")) {
                continue;
            }
            for (const std::string& line : m_log.lines(name)) {
                const bool isGap = line.find("\"LogGap\"") != std::string::npos;
                const bool isWhole = line.starts_with("{\"time\"") && line.ends_with("}");
                good += isWhole && !isGap ? 1 : 0;
                if (isGap && isWhole) {
                    good += std::stoi(line.substr(line.find("\"lost\":") + 7));
                }
            }
        }
        EXPECT_EQ(m_written, good) << "records, and those that a gap tells of";
        const std::string last = "log" + std::to_string(m_runs);
        ASSERT_FALSE(m_log.lines(last).empty());
        EXPECT_THAT(m_log.lines(last).back(),
                    testing::HasSubstr("record " + std::to_string(m_written) + "\""));
    }

private:
    static std::string configuration(int run) {
        return R"({"sinks": {"all": {"type": "file", "path": "log)" + std::to_string(run) +
               R"(", "maxSize": 500, "maxFiles": 20}}, "loggers": {"*": {"level": 10000, "sinks": ["all"]}}})";
    }

    int m_runs = 0;
    int m_written = 0;
    mrl::test::LogHarness m_log{configuration(0)};
};

class NewKeys : public Use {
public:
    void prepare() override { std::filesystem::remove_all(path("deep")); }
    void run() override {
        ASSERT_TRUE(ZORKeyStore::create(m_store));
        ASSERT_EQ(1U, ZORKeyStore::list(m_store).size());
    }
    void check(bool) override {
        if (std::filesystem::exists(m_store)) {
            EXPECT_EQ(1U, ZORKeyStore::list(m_store).size()) << "there, and not whole";
        }
    }

protected:
    const std::string m_store = path("deep/er/keys");
};

class RotatedKeys : public NewKeys {
public:
    RotatedKeys() { ZORKeyStore::create(m_store); }
    void prepare() override { m_before = ZORKeyStore::list(m_store).size(); }
    void run() override { EXPECT_TRUE(ZORKeyStore::rotate(m_store).writes); }
    void check(bool isDone) override {
        const std::size_t now = ZORKeyStore::list(m_store).size();
        EXPECT_TRUE(now == m_before + 1 || (!isDone && now == m_before)) << now;
    }

private:
    std::size_t m_before = 0;
};

/// A key of the store in use by a handle; each run finds the store changed.
class KeysInUse : public Use {
public:
    KeysInUse() { ZORKeyStore::create(path()); }
    void prepare() override { ZORKeyStore::rotate(path()); }
    void run() override {
        char* sealed = nullptr;
        ZOR_UInt32 size = 0;
        if (ZOR_EncryptCredential("secret", 6, "passport", 8, 0, &sealed, &size, 0) != eZORSuccess) {
            report("ZORError");
        }
        char* clear = nullptr;
        ZOR_UInt32 clearSize = 0;
        const int status = ZOR_DecryptCredential(sealed, size, "passport", 8, &clear, &clearSize, 0);
        ZOR_CryptoFree(sealed, 0);
        if (status != eZORSuccess) {
            report("ZORError");
        }
        EXPECT_EQ("secret", Handle::take(clear, clearSize));
    }

private:
    const mrl::test::Variable m_variable{"MRL_KEY_STORE", path()};
};

template <class File>
class Written : public Use {
public:
    void run() override {
        File file;
        if (file.open(path().c_str(), HBLFmFile::eCreateAlways, 0) == 0) {
            report("cannot be opened");
        }
        const std::string bytes = mrl::test::bytesOf(200000);
        const std::int64_t written = file.write(bytes.data(), bytes.size());
        if (file.seek(0, HBLFmFile::eBegin) != 0) {
            report("cannot be positioned");
        }
        std::string back(bytes.size() + 1, '\0');
        const std::int64_t got = file.read(back.data(), back.size());
        if (got >= 0) { // a part at most, and never another one
            EXPECT_EQ(std::max<std::int64_t>(written, 0), got);
            EXPECT_EQ(bytes.substr(0, static_cast<std::size_t>(got)),
                      back.substr(0, static_cast<std::size_t>(got)));
        }
        if (written != static_cast<std::int64_t>(bytes.size()) || got < 0 || file.close() == 0) {
            report("cannot be written or read");
        }
    }
};

class Configured : public Use {
public:
    void prepare() override { ConfigurationFile::take(path()); }
    void run() override {
        EXPECT_EQ("/here", HBLConfigurationFactory::getInstance().getProperty(I18NString("temp")).toUtf8());
    }
    Configured() {
        std::ofstream(path()) << ConfigurationFile::withParameters(
            ConfigurationFile::parameter("temp", "/here"));
    }
    ~Configured() override {
        ::unsetenv(HBLConfigurationFactory::s_locationVariable);
        HBLConfigurationFactory::deleteInstance();
    }
};

class Properties : public Use {
public:
    Properties() {
        std::ofstream(path()) << "<a><e><property>n</property><value type='long'>7</value></e>"
                                 "<e><property>m</property><value type='long'>8</value></e></a>";
    }
    ~Properties() override {
        mrl::detail::PropertyAccess::setConfigFile(mrl::detail::PropertyAccess::defaultConfigFile);
    }
    void prepare() override { mrl::detail::PropertyAccess::setConfigFile(path()); }
    void run() override {
        int n = 0;
        int m = 0;
        const MRLProperty& store = MRLProperty::getInstance();
        const int found = store.getValue("n", n) + store.getValue("m", m);
        EXPECT_TRUE((found == 2 && n == 7 && m == 8) || found == 0) << "all or, prescribed, nothing";
        if (found == 0) {
            report("no properties");
        }
    }
};

struct Row {
    const char* name;
    std::unique_ptr<Use> (*make)();
    const char* report; // what the failure begins with
};

class EveryFileCall : public testing::TestWithParam<Row> {};

/// Without those that a peer's thread takes whenever it waits.
long descriptors() {
    return std::ranges::count_if(
        std::filesystem::directory_iterator("/proc/self/fd"), [](const auto& descriptor) {
            std::error_code gone;
            const std::string target = std::filesystem::read_symlink(descriptor.path(), gone).string();
            return !gone && target != "anon_inode:[eventpoll]";
        });
}

TEST_P(EveryFileCall, FailsOnceAndTheNextUseIsWhole) {
    const std::unique_ptr<Use> use = GetParam().make();
    bool isReached = true;
    ASSERT_EQ("done", inNewUse(*use, 0, isReached));
    const long open = descriptors();
    int reported = 0;
    long n = 1;
    for (; !HasFailure(); ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        const std::string how = inNewUse(*use, n, isReached);
        if (!isReached) {
            break;
        }
        EXPECT_TRUE(how == "done" || how.find(GetParam().report) != std::string::npos) << how;
        reported += how == "done" ? 0 : 1;
        bool unused = false;
        EXPECT_EQ("done", inNewUse(*use, 0, unused)) << "the next one";
        EXPECT_GE(open, descriptors());
    }
    std::printf("%6ld calls, %d of the failures reported\n", n - 1, reported);
    EXPECT_GT(n, 1);
}

template <class T, auto... arguments>
std::unique_ptr<Use> make() {
    return std::make_unique<T>(arguments...);
}

INSTANTIATE_TEST_SUITE_P(Files, EveryFileCall,
                         testing::Values(Row{"echo", make<Echo, 1>, "HBL-BIT-0027"},
                                         Row{"echo_gathered", make<Echo, 0>, "HBL-BIT-0027"},
                                         Row{"recording", make<Recorded, false>, "PLQStreamError"},
                                         Row{"playback", make<Recorded, true>, "PLQStreamError"},
                                         Row{"log", make<Log>, "nothing"},
                                         Row{"new_keys", make<NewKeys>, "ZORError"},
                                         Row{"rotated_keys", make<RotatedKeys>, "ZORError"},
                                         Row{"keys_in_use", make<KeysInUse>, "ZORError"},
                                         Row{"plain_file", make<Written<HBLFmFile>>, "cannot be"},
                                         Row{"protected_file", make<Written<ZORFmFile>>, "cannot be"},
                                         Row{"configuration", make<Configured>, "HBLConfigurationError"},
                                         Row{"properties", make<Properties>, "no properties"}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
