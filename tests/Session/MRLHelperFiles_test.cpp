#include "Session/MRLDocumentOutput.h"
#include "Session/MRLHelper.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"
#include "support/TemporaryDirectory.h"

#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM_Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/timeb.h>
#include <sys/wait.h>

using mrl::test::TemporaryDirectory;

namespace {

/// Sets an environment variable for one test.
class Variable {
public:
    Variable(const char* name, const std::string& value)
        : m_name(name) {
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable() { ::unsetenv(m_name); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_name;
};

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
        {"true", "", 0},
        {"", "", 0},
        {"printf '\xe2\x82\xac%.0s' $(seq 3001)", euros, 0},
        {"printf a; exit 7", "a", 7 << 8},
        {"kill -9 $$", "", SIGKILL},
        {"no_such_command_here 2>/dev/null", "", 127 << 8},
    };
    for (const auto& row : rows) {
        I18NString output("before ");
        EXPECT_EQ(MRLHelper::runCommand(row.command, nullptr, &output), row.status) << row.command;
        EXPECT_EQ(output, "before " + row.output) << row.command;
    }
    EXPECT_EQ(MRLHelper::runCommand("cat", nullptr, nullptr), 0) << "there is nothing to read";
}

TEST_F(Commands, ReadADocumentAsFarAsTheyLike) {
    EXPECT_EQ(feed("[ \"$(cat)\" = 'some text' ]", "some text"), 0);
    EXPECT_EQ(feed("[ $(wc -c) = 1000000 ]", std::string(1000000, 'x')), 0);
    EXPECT_EQ(feed("exit 3", std::string(1000000, 'x')), 3 << 8) << "a broken pipe ends nobody";
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    EXPECT_EQ(sigismember(&mask, SIGPIPE), 0);
    sigpending(&mask);
    EXPECT_EQ(sigismember(&mask, SIGPIPE), 0);
}

TEST_F(Commands, AreRefusedWithWhatTheSystemSays) {
    TemporaryDirectory directory;
    MRLDocumentOutput document;
    document.init(0, 0);
    I18NString output;
    expectAssert([&] { MRLHelper::runCommand("touch " + directory.path() + "/x", &document, &output); },
                 "HBL_ASSERT(!(pDocumentOutput && pOutput));");
    EXPECT_TRUE(directory.files().empty());

    struct NoMoreFiles {
        NoMoreFiles() {
            ::getrlimit(RLIMIT_NOFILE, &before);
            const rlimit none{0, before.rlim_max};
            ::setrlimit(RLIMIT_NOFILE, &none);
        }
        ~NoMoreFiles() { ::setrlimit(RLIMIT_NOFILE, &before); }
        rlimit before{};
    };
    expectFailure(
        [&] {
            const NoMoreFiles limit;
            MRLHelper::runCommand("true", nullptr, &output);
        },
        0x9e7d4834, {"true", "24", "Too many open files"}, "MRLHelper::runCommand");
}

TEST(Paths, OfCommandsAreMadeForWindows) {
    const std::pair<const char*, const char*> rows[] = {
        {"C:/Program Files/host/run.exe", R"(C:\"Program Files"\host\run.exe)"},
        {R"(a\b c\d e)", R"(a\"b c"\"d e")"},
        {"two words", "\"two words\""},
        {"word", "word"},
        {"", ""},
        {"/a//b/", R"(\a\\b\)"},
        {" ", "\" \""},
    };
    for (const auto& [given, expected] : rows) {
        I18NString path(given);
        MRLHelper::fixCommandPath(path);
        EXPECT_EQ(path, expected);
    }
    I18NString text(R"(\a\\b\)");
    MRLHelper::stripBackSlash(text);
    EXPECT_EQ(text, "ab");
}

TEST(Paths, OfTheGatewayEndBehindTheirLastSlash) {
    const struct {
        const char* gateway;
        const char* stripped;
    } rows[] = {
        {"http://host/gw/cgi", "http://host/gw/"},
        {"http://host/gw/", "http://host/gw/"},
        {"gateway", "gateway"},
        {"/cgi", "/cgi"},
        {"", ""},
    };
    for (const auto& row : rows) {
        const ConfigurationFile file(
            ConfigurationFile::withParameters(ConfigurationFile::parameter("gateway", row.gateway)));
        I18NString path("before");
        MRLHelper::getBasePath(path, 0);
        EXPECT_EQ(path, row.gateway);
        MRLHelper::getBasePath(path, 1);
        EXPECT_EQ(path, row.stripped);
    }
}

TEST(Paths, SplitAtTheLastDot) {
    const struct {
        const char* name;
        const char* base;
        const char* extension;
    } rows[] = {
        {"report.pdf", "report", "pdf"}, {"a.tar.gz", "a.tar", "gz"}, {"ends.", "ends", ""},
        {".hidden", "", "hidden"},       {"none", "none", "kept"},    {"", "", "kept"},
    };
    for (const auto& row : rows) {
        std::string name = row.name;
        std::string extension = "kept";
        MRLHelper::fileBasename(name, name, extension);
        EXPECT_EQ(name, row.base);
        EXPECT_EQ(extension, row.extension);
    }
}

TEST(Directories, ForOutputUnderTestStandBesideThePrograms) {
    const TemporaryDirectory home;
    const Variable variable("MRL_HOME", home.path());
    const std::pair<MRLOutputTestType, const char*> rows[] = {{eMRLOutputTestNAO, "v5DebugNAO"},
                                                              {eMRLOutputTestPromptNAO, "v5DebugPromptNAO"},
                                                              {eMRLOutputTestROM, "v5DebugROM"},
                                                              {eMRLOutputTestCGS, "v5DebugCGS"}};
    for (const auto& [type, directory] : rows) {
        std::string path;
        EXPECT_EQ(MRLHelper::createTestOutputPath(type, path), 1);
        EXPECT_EQ(path, home.path() + "/webcontent/" + directory + "/");
        EXPECT_TRUE(std::filesystem::is_directory(path));
    }
    std::string path = "kept";
    EXPECT_EQ(MRLHelper::createTestOutputPath(eMRLOutputTestNone, path), 0);
    EXPECT_EQ(MRLHelper::createTestOutputPath(static_cast<MRLOutputTestType>(5), path), 0);
    std::filesystem::remove(home.path() + "/webcontent/v5DebugROM");
    std::ofstream(home.path() + "/webcontent/v5DebugROM") << "in the way";
    EXPECT_EQ(MRLHelper::createTestOutputPath(eMRLOutputTestROM, path), 0);
    EXPECT_EQ(path, "kept");
}

TEST(Directories, ForTemporaryFilesAreMadeAnewEachTime) {
    const TemporaryDirectory home;
    const ConfigurationFile file(
        ConfigurationFile::withParameters(ConfigurationFile::parameter("temp", home.path() + "/a/../b")));
    const std::string expected = home.path() + "/b/renq";
    EXPECT_EQ(MRLHelper::findOrCreateRenqTempDir(), expected);
    EXPECT_TRUE(std::filesystem::is_directory(expected));
    std::filesystem::remove(expected);
    EXPECT_EQ(MRLHelper::findOrCreateRenqTempDir(), expected);
    EXPECT_TRUE(std::filesystem::is_directory(expected));
    std::filesystem::remove(expected);
    std::ofstream(expected) << "in the way";
    expectAssert([] { MRLHelper::findOrCreateRenqTempDir(); },
                 "HBL_ASSERT_NAMED(HBLFmDir::createRecursiveDir(tempPath.c_str()), "
                 "\"[MRLHelper::findOrCreateTempDir] temporary directory creation failure.\");");
}

TEST(Times, AreWrittenInUtc) {
    const struct {
        timeb when;
        const char* expected;
    } rows[] = {
        {{0, 0, 0, 0}, "1970-01-01T00:00:00.000Z"},
        {{-1, 999, 0, 0}, "1969-12-31T23:59:59.999Z"},
        {{951782400, 7, 60, 1}, "2000-02-29T00:00:00.007Z"}, // 11016 days; zone and summer do not matter
        {{4102444799, 50, 0, 0}, "2099-12-31T23:59:59.050Z"},
        {{253402300800, 0, 0, 0}, "10000-01-01T00:00:00.000Z"},
    };
    std::string text;
    for (const auto& row : rows) {
        MRLHelper::getCurrentTime(text, &row.when);
        EXPECT_EQ(text, row.expected);
    }
    MRLHelper::getCurrentTime(text, nullptr);
    EXPECT_THAT(text, testing::MatchesRegex("20[0-9][0-9]-[01][0-9]-[0-3][0-9]T[0-2][0-9]:[0-5][0-9]:[0-6]"
                                            "[0-9][.][0-9][0-9][0-9]Z"));
    const timeb never{INT64_MAX, 0, 0, 0};
    EXPECT_THROW(MRLHelper::getCurrentTime(text, &never), HBLAssertError);
}

TEST(Configuration, ComesFromItsPlaceOrFromTheFileThatIsNamed) {
    const ConfigurationFile file(
        ConfigurationFile::withParameters(ConfigurationFile::parameter("gateway", "default")));
    const TemporaryDirectory directory;
    const std::string other = directory.path() + "/other.xml";
    std::ofstream(other) << ConfigurationFile::withParameters(
        ConfigurationFile::parameter("gateway", "other"));
    I18NString gateway;
    MRLHelper::initializeHBLConfiguration("");
    MRLHelper::getBasePath(gateway, 0);
    EXPECT_EQ(gateway, "default");
    MRLHelper::initializeHBLConfiguration(other);
    MRLHelper::getBasePath(gateway, 0);
    EXPECT_EQ(gateway, "other");
    std::ofstream(other) << "<a>\n<b></a>";
    try {
        MRLHelper::initializeHBLConfiguration(other);
        ADD_FAILURE() << "the file is no XML";
    } catch (HBLException& e) {
        EXPECT_THAT(e.toString(), testing::HasSubstr(other));
    }
    MRLHelper::getBasePath(gateway, 0);
    EXPECT_EQ(gateway, "other");
}

TEST(Parameters, HaveTheirConnectionResolvedAsTheModeSays) {
    const struct {
        int mode;
        int flag;
        const char* expected;
    } rows[] = {{0, 1, "before"}, {1, 0, "true"},   {2, 1, "false"},  {3, 0, "false"},
                {3, 2, "true"},   {4, 1, "before"}, {-1, 1, "before"}};
    for (const auto& row : rows) {
        HBLIDOM_Document document;
        MRLHelper::parseXML("<a resolveConnection='before'/>", 31, document);
        HBLIDOM_Element element = document.getDocumentElement();
        MRLHelper::resolveGetParametersConnection(element, static_cast<MRLGetParametersMode>(row.mode),
                                                  row.flag);
        EXPECT_EQ(element.getAttribute("resolveConnection"), row.expected) << row.mode;
    }
}

} // namespace
