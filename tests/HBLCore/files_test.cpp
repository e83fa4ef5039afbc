#include "support/Environment.h"
#include "support/TemporaryDirectory.h"

#include "HBLCore/HBLFmDir.h"
#include "HBLCore/HBLFmFile.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

class Files : public testing::Test {
protected:
    std::string at(const char* name) const { return (m_directory / name).string(); }

    const mrl::test::TemporaryDirectory m_temporary;
    const fs::path m_directory = m_temporary.path();
};

TEST_F(Files, AreWrittenPositionedAndRead) {
    HBLFmFile file;
    ASSERT_EQ(file.open(at("f").c_str(), HBLFmFile::eCreateAlways, 0), 1);
    EXPECT_EQ(file.write("hello world", 11), 11);
    EXPECT_EQ(file.getLength(), 11);
    EXPECT_EQ(file.seek(6, HBLFmFile::eBegin), 6);
    EXPECT_EQ(file.write("W", 1), 1);
    EXPECT_EQ(file.seek(-5, HBLFmFile::eEnd), 6);
    char text[16] = "";
    EXPECT_EQ(file.read(text, sizeof text), 5);
    EXPECT_STREQ(text, "World");
    EXPECT_EQ(file.read(text, sizeof text), 0);
    EXPECT_EQ(file.seek(-100, HBLFmFile::eCurrent), -1);
    EXPECT_EQ(file.seek(0, HBLFmFile::eCurrent), 11) << "a failed seek leaves the position";
    EXPECT_EQ(file.close(), 1);
    EXPECT_EQ(file.close(), 0);
    EXPECT_EQ(file.read(text, 1), -1);
    EXPECT_EQ(file.getLastError(), EBADF);
}

TEST_F(Files, OpenAsTheirModeSays) {
    HBLFmFile file;
    const std::string path = at("f");
    EXPECT_EQ(file.open(path.c_str(), HBLFmFile::eOpenExisting, HBLFmFile::eReadOnly), 0);
    EXPECT_EQ(file.getLastError(), ENOENT);
    EXPECT_EQ(file.open(path.c_str(), HBLFmFile::eCreateNew, 0), 1);
    EXPECT_EQ(file.open(path.c_str(), HBLFmFile::eCreateNew, 0), 0) << "it is there already";
    EXPECT_EQ(file.open(path.c_str(), HBLFmFile::eOpenExisting, HBLFmFile::eReadOnly), 1);
    EXPECT_EQ(file.write("x", 1), -1);
    EXPECT_EQ(file.open(m_directory.c_str(), HBLFmFile::eOpenExisting, HBLFmFile::eReadOnly), 0);
    EXPECT_EQ(file.getLastError(), EISDIR);
    std::ofstream(path) << "old";
    EXPECT_EQ(file.open(path.c_str(), HBLFmFile::eCreateAlways, 0), 1);
    EXPECT_EQ(file.getLength(), 0) << "what is there goes";
    EXPECT_EQ(file.open(nullptr, HBLFmFile::eCreateAlways, 0), 0);
    EXPECT_EQ(file.open(path.c_str(), HBLFmFile::eCreateAlways, HBLFmFile::eReadOnly), 0);
    EXPECT_FALSE(file.isOpen());

    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u) << "for the owner alone";

    const std::string link = at("link");
    ASSERT_EQ(symlink(path.c_str(), link.c_str()), 0);
    EXPECT_EQ(file.open(link.c_str(), HBLFmFile::eCreateAlways, 0), 0) << "what somebody put in its place";
    EXPECT_EQ(file.getLastError(), ELOOP);
    EXPECT_EQ(file.open(link.c_str(), HBLFmFile::eOpenExisting, HBLFmFile::eNoFollow), 0);
    EXPECT_EQ(file.open(link.c_str(), HBLFmFile::eOpenExisting, HBLFmFile::eReadOnly), 1) << "a host's path";
    EXPECT_EQ(HBLFmFile::remove(path.c_str()), 1);
    EXPECT_EQ(HBLFmFile::remove(path.c_str()), 0);
}

TEST_F(Files, ThatTheDiskHasNoRoomForTellSo) {
    HBLFmFile full;
    ASSERT_EQ(full.open("/dev/full", HBLFmFile::eOpenExisting, 0), 1);
    EXPECT_EQ(full.write("x", 1), -1);
    EXPECT_EQ(full.getLastError(), ENOSPC);
}

TEST_F(Files, AreFoundByKind) {
    std::string file;
    ASSERT_EQ(HBLFmDir::createTempFile(m_directory.c_str(), "output", file), 1);
    EXPECT_TRUE(fs::path(file).filename().string().starts_with("output")) << file;
    EXPECT_EQ(HBLFmDir::exists(file.c_str(), HBLFmDir::eReadableFile), 1);
    EXPECT_EQ(HBLFmDir::exists(m_directory.c_str(), HBLFmDir::eReadableFile), 0);
    EXPECT_EQ(HBLFmDir::exists(m_directory.c_str(), 0), 1);
    EXPECT_EQ(HBLFmDir::exists(at("nothing").c_str(), 0), 0);
    EXPECT_EQ(HBLFmDir::exists(nullptr, 0), 0);
    std::string other;
    ASSERT_EQ(HBLFmDir::createTempFile(m_directory.c_str(), "output", other), 1);
    EXPECT_NE(file, other);
    EXPECT_EQ(HBLFmDir::createTempFile(at("nothing").c_str(), "output", other), 0);
}

TEST_F(Files, GetTheirDirectoriesMade) {
    EXPECT_EQ(HBLFmDir::createRecursiveDir(at("a/b/../c/").c_str()), 1);
    EXPECT_TRUE(fs::is_directory(m_directory / "a/c"));
    EXPECT_EQ(HBLFmDir::createRecursiveDir(at("a/c").c_str()), 1) << "there already";
    std::string file;
    ASSERT_EQ(HBLFmDir::createTempFile(m_directory.c_str(), "f", file), 1);
    EXPECT_EQ(HBLFmDir::createRecursiveDir((file + "/below").c_str()), 0);
    EXPECT_EQ(HBLFmDir::createRecursiveDir(""), 0);
}

TEST(Paths, AreTakenFromTheProgramsDirectory) {
    const auto resolved = [](std::string path) {
        HBLFmDir::resolveEffectivePath(path);
        return path;
    };
    {
        const mrl::test::Variable home("MRL_HOME", "/opt/host");
        EXPECT_EQ(resolved("../configuration/x.xml"), "/opt/host/configuration/x.xml");
        EXPECT_EQ(resolved("/etc/./x.xml"), "/etc/x.xml");
        EXPECT_EQ(resolved(""), "");
    }
    EXPECT_EQ(resolved("x"), (fs::read_symlink("/proc/self/exe").parent_path() / "x").string());
}

TEST(Paths, AreSplitAtTheLastSlash) {
    const char* const rows[][3] = {
        {"a/b/c.xml", "a/b", "c.xml"}, {"c.xml", ".", "c.xml"}, {"/c", "/", "c"}, {"a/", "a", ""}};
    for (const auto& [path, directory, file] : rows) {
        std::string d;
        std::string f;
        HBLFmDir::splitPath(path, &d, &f);
        EXPECT_EQ(d, directory) << path;
        EXPECT_EQ(f, file) << path;
        HBLFmDir::splitPath(path, nullptr, nullptr);
    }
}

} // namespace
