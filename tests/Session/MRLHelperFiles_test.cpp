#include "Session/MRLDocumentOutput.h"
#include "Session/MRLHelper.h"
#include "support/ConfigurationFile.h"
#include "support/Environment.h"
#include "support/Failure.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/timeb.h>

using mrl::test::TemporaryDirectory;

namespace {

class Commands : public testing::Test {
protected:
    Commands() { MRLDocIo::initialize(); }
    ~Commands() override { MRLDocIo::terminate(); }

    /// The status of a command that reads `input`.
    static int feed(const std::string& command, const std::string& input) {
        MRLDocumentOutput document;
        document.init(0, 0);
        document.write(input);
        return MRLHelper::runCommand(command, &document, nullptr);
    }
};

TEST_F(Commands, GiveTheirOutputAndTheirStatus) {
    std::string euros;
    for (int i = 0; i < 3001; ++i) {
        euros += "\xe2\x82\xac"; // three bytes, so that any piece ends within one
    }
    const struct {
        std::string command;
        std::string output;
        int status; // as waitpid() tells it
    } rows[] = {
        {"printf 'h\xc3\xa9\\nx'", "h\xc3\xa9\nx", 0},
        {"", "", 0},
        {"printf '\xe2\x82\xac%.0s' $(seq 3001)", euros, 0},
        {"printf a; exit 7", "a", 7 << 8},
        {"kill -9 $$", "", SIGKILL},
        {"no_such_command_here 2>/dev/null", "", 127 << 8},
        {"grep SigBlk /proc/self/status", "SigBlk:\t0000000000000000\n", 0}, // SIGPIPE as commands expect it
    };
    for (const auto& row : rows) {
        I18NString output("before ");
        EXPECT_EQ(MRLHelper::runCommand(row.command, nullptr, &output), row.status) << row.command;
        EXPECT_EQ(output, "before " + row.output) << row.command;
    }
    EXPECT_EQ(MRLHelper::runCommand("cat", nullptr, nullptr), 0) << "there is nothing to read";
}

TEST_F(Commands, ReadADocumentAsFarAsTheyLike) {
    sigset_t before;
    pthread_sigmask(SIG_SETMASK, nullptr, &before);
    EXPECT_EQ(feed("[ \"$(cat)\" = 'some text' ]", "some text"), 0);
    EXPECT_EQ(feed("[ $(wc -c) = 1000000 ]", std::string(1000000, 'x')), 0);
    EXPECT_EQ(feed("exit 3", std::string(1000000, 'x')), 3 << 8) << "a broken pipe ends nobody";
    sigset_t behind;
    pthread_sigmask(SIG_SETMASK, nullptr, &behind);
    EXPECT_EQ(sigismember(&behind, SIGPIPE), sigismember(&before, SIGPIPE));
    sigpending(&behind);
    EXPECT_EQ(sigismember(&behind, SIGPIPE), 0);
}

TEST_F(Commands, AreRefusedWithWhatTheSystemSays) {
    const TemporaryDirectory directory;
    MRLDocumentOutput document;
    I18NString output;
    expectAssert([&] { MRLHelper::runCommand("touch " + directory.path() + "/x", &document, &output); },
                 "HBL_ASSERT(!(pDocumentOutput && pOutput));");
    EXPECT_TRUE(directory.files().empty());
    const std::string endless(1 << 20, ' '); // no process takes one of this size: no memory, says popen
    expectFailure([&] { MRLHelper::runCommand(endless, nullptr, &output); }, 0x9e7d4834,
                  {endless, "12", "Cannot allocate memory"}, "MRLHelper::runCommand");
}

TEST(Directories, ForOutputUnderTestStandBesideThePrograms) {
    const TemporaryDirectory home;
    const mrl::test::Variable variable("MRL_HOME", home.path());
    const char* const names[] = {"v5DebugNAO", "v5DebugPromptNAO", "v5DebugROM", "v5DebugCGS"};
    std::string path;
    for (int type = 1; type <= 4; ++type) {
        EXPECT_EQ(MRLHelper::createTestOutputPath(static_cast<MRLOutputTestType>(type), path), 1);
        EXPECT_EQ(path, home.path() + "/webcontent/" + names[type - 1] + "/");
        EXPECT_TRUE(std::filesystem::is_directory(path));
    }
    path = "kept";
    std::filesystem::remove(home.path() + "/webcontent/v5DebugROM");
    std::ofstream(home.path() + "/webcontent/v5DebugROM") << "in the way";
    for (const int type : {0, 3, 5}) {
        EXPECT_EQ(MRLHelper::createTestOutputPath(static_cast<MRLOutputTestType>(type), path), 0);
    }
    EXPECT_EQ(path, "kept");
}

TEST(Directories, ForTemporaryFilesAreMadeAnewEachTime) {
    const TemporaryDirectory home;
    const ConfigurationFile file(
        ConfigurationFile::withParameters(ConfigurationFile::parameter("temp", home.path() + "/a/../b")));
    const std::string expected = home.path() + "/b/renq";
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(MRLHelper::findOrCreateRenqTempDir(), expected);
        EXPECT_TRUE(std::filesystem::is_directory(expected));
        std::filesystem::remove(expected);
    }
    std::ofstream(expected) << "in the way";
    expectAssert([] { MRLHelper::findOrCreateRenqTempDir(); },
                 "HBL_ASSERT_NAMED(HBLFmDir::createRecursiveDir(tempPath.c_str()), "
                 "\"[MRLHelper::findOrCreateTempDir] temporary directory creation failure.\");");
}

TEST(Times, OfNowAndOfNever) {
    std::string text;
    MRLHelper::getCurrentTime(text, nullptr);
    EXPECT_THAT(
        text, testing::MatchesRegex("20..-[01].-[0-3].T[0-2][0-9]:[0-5][0-9]:[0-6][0-9][.][0-9][0-9][0-9]Z"));
    const timeb never{INT64_MAX, 0, 0, 0};
    EXPECT_THROW(MRLHelper::getCurrentTime(text, &never), HBLAssertError);
}

TEST(Configuration, ComesFromItsPlaceOrFromTheFileThatIsNamed) {
    const auto with = [](const char* gateway) {
        return ConfigurationFile::withParameters(ConfigurationFile::parameter("gateway", gateway));
    };
    const ConfigurationFile file(with("default"));
    const TemporaryDirectory directory;
    const std::string other = directory.path() + "/other.xml";
    std::ofstream(other) << with("other");
    I18NString gateway;
    MRLHelper::initializeHBLConfiguration("");
    MRLHelper::getBasePath(gateway, 0);
    EXPECT_EQ(gateway, "default");
    MRLHelper::initializeHBLConfiguration(other);
    MRLHelper::getBasePath(gateway, 0);
    EXPECT_EQ(gateway, "other");
    std::ofstream(other) << "<a>\n<b></a>";
    expectFailure([&] { MRLHelper::initializeHBLConfiguration(other); }, 0x9e74dda8, {other, "2", "6"});
}

} // namespace
