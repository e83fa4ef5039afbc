// The protected file: the same to its user as a plain one, and nobody else's.
#include "support/Files.h"
#include "support/Processes.h"
#include "support/TemporaryDirectory.h"

#include "ZORCrypto/ZORFmFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/resource.h>

namespace fs = std::filesystem;
using mrl::test::Child;

namespace {

constexpr std::size_t BLOCK = 65536; // of clear text, and of cipher text

class ProtectedFile : public testing::Test {
protected:
    ProtectedFile() { EXPECT_EQ(m_file.open(m_path.c_str(), HBLFmFile::eCreateAlways, 0), 1); }

    std::string stored() const { return mrl::test::bytesOfFile(m_path); }
    void store(const std::string& bytes) const {
        std::fstream(m_path, std::ios::binary | std::ios::in | std::ios::out) << bytes;
        fs::resize_file(m_path, bytes.size());
    }
    void put(std::size_t block, char c) {
        const std::string text(BLOCK, c);
        EXPECT_EQ(m_file.seek(block * BLOCK, HBLFmFile::eBegin), static_cast<std::int64_t>(block * BLOCK));
        EXPECT_EQ(m_file.write(text.data(), text.size()), static_cast<std::int64_t>(BLOCK));
    }
    /// The block's first byte, or 0 when it is refused.
    char get(std::size_t block) {
        char c = 0;
        m_file.seek(block * BLOCK, HBLFmFile::eBegin);
        const std::int64_t got = m_file.read(&c, 1);
        EXPECT_TRUE(got == 1 || m_file.getLastError() == EBADMSG);
        return got == 1 ? c : '\0';
    }

    const mrl::test::TemporaryDirectory m_directory;
    const std::string m_path = m_directory.path() + "/file";
    ZORFmFile m_file;
};

TEST_F(ProtectedFile, ReadsWhatWasWrittenInAnyOrder) {
    std::mt19937 random(20261121);
    const auto upTo = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit)(random);
    };
    std::string model;
    for (int step = 0; step < 600; ++step) {
        const std::size_t at = upTo(model.size() + (step % 50 == 0 ? 3 * BLOCK : 0));
        std::string piece(upTo(step % 7 == 0 ? 3 * BLOCK : 900), static_cast<char>('a' + step % 26));
        ASSERT_EQ(m_file.seek(at, HBLFmFile::eBegin), static_cast<std::int64_t>(at));
        if (step % 2 == 0) {
            ASSERT_EQ(m_file.write(piece.data(), piece.size()), static_cast<std::int64_t>(piece.size()));
            if (!piece.empty() && model.size() < at + piece.size())
                model.resize(at + piece.size()); // zeros where nothing was written
            model.replace(std::min(at, model.size()), piece.size(), piece);
        } else {
            const std::size_t there = at < model.size() ? std::min(piece.size(), model.size() - at) : 0;
            ASSERT_EQ(m_file.read(piece.data(), piece.size()), static_cast<std::int64_t>(there));
            ASSERT_EQ(piece.substr(0, there), model.substr(std::min(at, model.size()), there))
                << "step " << step;
        }
        ASSERT_EQ(m_file.getLength(), static_cast<std::int64_t>(model.size()));
    }
    EXPECT_EQ(m_file.seek(static_cast<std::size_t>(-5), HBLFmFile::eEnd),
              static_cast<std::int64_t>(model.size() - 5));
    EXPECT_EQ(m_file.seek(static_cast<std::size_t>(-6), HBLFmFile::eBegin), -1);
    EXPECT_EQ(m_file.seek(0, HBLFmFile::eCurrent), static_cast<std::int64_t>(model.size() - 5))
        << "the position stays";
}

TEST_F(ProtectedFile, FindsWhatSomebodyDidToIt) {
    struct Attack {
        const char* name;
        void (*change)(std::string& now, const std::string& before);
        const char* blocksThen; // the first byte of each block, "-" where it must be refused
    };
    using Bytes = std::string;
    const Attack attacks[] = {
        {"nothing", [](Bytes&, const Bytes&) {}, "axcd"},
        {"a bit in the cipher text", [](Bytes& now, const Bytes&) { now[5] ^= 1; }, "-xcd"},
        {"the last bit of a block", [](Bytes& now, const Bytes&) { now[2 * BLOCK - 1] ^= 1; }, "a-cd"},
        {"two blocks swapped",
         [](Bytes& now, const Bytes&) { std::swap_ranges(&now[0], &now[BLOCK], &now[BLOCK]); }, "--cd"},
        {"an older block put back",
         [](Bytes& now, const Bytes& before) { now.replace(BLOCK, BLOCK, before, BLOCK, BLOCK); }, "a-cd"},
        {"the whole file put back", [](Bytes& now, const Bytes& before) { now = before; }, "a-cd"},
        {"the end cut off", [](Bytes& now, const Bytes&) { now.resize(3 * BLOCK - 1); }, "ax--"},
        {"everything cut off", [](Bytes& now, const Bytes&) { now.clear(); }, "----"}};
    for (const Attack& attack : attacks) {
        ASSERT_EQ(m_file.open(m_path.c_str(), HBLFmFile::eCreateAlways, 0), 1);
        for (std::size_t block = 0; block < 4; ++block)
            put(block, static_cast<char>('a' + block));
        put(4, 'e'); // the last one is in memory; what comes before is on disk
        const std::string before = stored();
        put(1, 'x');
        get(4);
        std::string now = stored();
        attack.change(now, before);
        store(now);
        std::string blocks;
        for (std::size_t block = 0; block < 4; ++block) {
            const char c = get(block);
            blocks += c != '\0' ? c : '-';
        }
        EXPECT_EQ(blocks, attack.blocksThen) << attack.name;
    }
}

TEST_F(ProtectedFile, ShowsNothingOnDiskAndOpensForNobodyAfterwards) {
    const std::string secret = "a very private line";
    m_file.write(secret.data(), secret.size());
    EXPECT_EQ(m_file.close(), 1);
    EXPECT_EQ(stored().size(), BLOCK) << "not even how long it is";
    EXPECT_EQ(stored().find("private"), std::string::npos);
    EXPECT_EQ(fs::status(m_path).permissions(), fs::perms(0600));
    EXPECT_EQ(m_file.open(m_path.c_str(), HBLFmFile::eOpenExisting, HBLFmFile::eReadOnly), 0);
    EXPECT_EQ(m_file.getLastError(), EOPNOTSUPP);
    char c = 0;
    EXPECT_EQ(m_file.read(&c, 1), -1);
    EXPECT_EQ(m_file.getLastError(), EBADF);
    EXPECT_EQ(m_file.close(), 0);
}

TEST_F(ProtectedFile, IsNotMadeThroughALinkThatSomebodyPutThere) {
    const std::string link = m_path + ".link";
    store("somebody's");
    fs::create_symlink(m_path, link);
    for (const auto mode : {HBLFmFile::eCreateAlways, HBLFmFile::eCreateNew}) {
        ZORFmFile file;
        EXPECT_EQ(file.open(link.c_str(), mode, 0), 0);
        EXPECT_EQ(file.getLastError(), mode == HBLFmFile::eCreateNew ? EEXIST : ELOOP);
    }
    EXPECT_EQ(stored(), "somebody's");
}

TEST_F(ProtectedFile, IsOfNoUseToAChildWhichWouldUseItsNoncesAgain) {
    put(0, 'a');
    put(1, 'b');
    EXPECT_EQ(Child([&] { return m_file.write("x", 1) == -1 ? m_file.getLastError() : 0; }).end(), EPERM);
    put(1, 'c');
    m_file.write("d", 1);
    EXPECT_EQ(Child([&] { return m_file.close(); }).end(), 0) << "what is in memory is the parent's to keep";
    EXPECT_EQ(get(0), 'a');
    EXPECT_EQ(get(1), 'c');
    EXPECT_EQ(get(2), 'd');
}

TEST_F(ProtectedFile, TellsInTheWriteThatFillsTheDisk) {
    const Child child([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{2 * BLOCK + 100, RLIM_INFINITY}; // the third block fits in part
        setrlimit(RLIMIT_FSIZE, &limit);
        m_file.open(m_path.c_str(), HBLFmFile::eCreateAlways, 0); // its own: this is a child
        const std::string text(3 * BLOCK, 'x');
        const bool cut = m_file.write(text.data(), text.size()) == static_cast<std::int64_t>(2 * BLOCK);
        const bool none = m_file.write("x", 1) == -1;
        const int error = m_file.getLastError();
        const bool kept = get(0) == 'x' && get(1) == 'x';
        limit.rlim_cur = RLIM_INFINITY;
        setrlimit(RLIMIT_FSIZE, &limit);
        m_file.seek(0, HBLFmFile::eEnd);
        const bool goesOn = m_file.write("yz", 2) == 2 && get(2) == 'y';
        return cut && none && kept && goesOn ? error : 0;
    });
    EXPECT_EQ(child.end(), EFBIG);
}

} // namespace
