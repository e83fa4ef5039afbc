// The store under a document: memory, then a file, and every way that the file can fail.
#include "DocumentFixture.h"
#include "support/Threads.h"

#include "PLQStreams/PLQStreamError.h"

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <random>
#include <set>
#include <sys/stat.h>

namespace fs = std::filesystem;
using mrl::test::bytesOf;
using mrl::test::Documents;
using mrl::test::FullDisk;
using mrl::test::noDirectory;

namespace {

std::string readBack(MRLDocIo& io) {
    io.reopen();
    std::string bytes(1 << 20, '?');
    const std::int64_t got = io.read(bytes.data(), bytes.size());
    return got < 0 ? "(failed)" : bytes.substr(0, static_cast<std::size_t>(got));
}

std::int64_t write(MRLDocIo& io, const std::string& bytes) {
    return io.write(bytes.data(), bytes.size());
}

class Store : public testing::TestWithParam<bool> {}; // encrypted or not
INSTANTIATE_TEST_SUITE_P(DocIo, Store, testing::Bool(),
                         [](const auto& row) { return row.param ? "encrypted" : "plain"; });

TEST_P(Store, MovesToAFileWithTheFirstByteThatDoesNotFit) {
    const Documents documents(GetParam(), "0"); // 300000
    MRLDocIo io;
    io.init(0);
    const std::string most = bytesOf(300000);
    EXPECT_EQ(write(io, most), 300000);
    EXPECT_EQ(io.str(), most);
    EXPECT_EQ(io.getName(), "");
    io.seek(0, eMRLDocIo_SeekBegin);
    EXPECT_EQ(io.write("R", 1), 1); // overwrites, and is still in memory
    EXPECT_EQ(io.pcount(), 300000U);
    EXPECT_EQ(io.seek(0, eMRLDocIo_SeekEnd), 300000);
    EXPECT_EQ(io.write("!", 1), 1);
    EXPECT_EQ(io.str(), nullptr);
    EXPECT_EQ(io.pcount(), 300001U);
    EXPECT_EQ(io.encrypted(), GetParam() ? 1 : 0);
    EXPECT_EQ(readBack(io), "R" + most.substr(1) + "!");
}

TEST_P(Store, IsOneSequenceOfBytesInMemoryAndBeyond) {
    const Documents documents(GetParam());
    std::minstd_rand random(7);
    const auto upTo = [&](std::size_t n) { return static_cast<std::size_t>(random()) % (n + 1); };
    for (int round = 0; round < 40; ++round) {
        MRLDocIo io;
        io.init(0);
        std::string model;
        std::size_t at = 0;
        for (int step = 0; step < 25; ++step) {
            if (upTo(2) == 0) {
                at = upTo(model.size());
                const int origin = static_cast<int>(upTo(3)); // 3 counts as the beginning
                const std::int64_t now = io.seek(0, eMRLDocIo_SeekCurrent);
                const std::int64_t from = origin == 1   ? now
                                          : origin == 2 ? static_cast<std::int64_t>(model.size())
                                                        : 0;
                ASSERT_EQ(io.seek(static_cast<std::int64_t>(at) - from, origin),
                          static_cast<std::int64_t>(at));
            }
            const std::string piece = bytesOf(upTo(300)) + static_cast<char>('a' + upTo(20));
            if (upTo(1) == 0) {
                ASSERT_EQ(write(io, piece), static_cast<std::int64_t>(piece.size()));
                model.replace(at, piece.size(), piece);
                at += piece.size();
            } else {
                std::string got(piece.size(), '?');
                got.resize(static_cast<std::size_t>(io.read(got.data(), got.size())));
                ASSERT_EQ(got, model.substr(at, piece.size()));
                at += got.size();
            }
            ASSERT_EQ(io.pcount(), model.size());
        }
        ASSERT_EQ(readBack(io), model);
    }
    EXPECT_EQ(documents.files(), 0U);
}

TEST(DocIo, KeepsItsFileToItselfAndRemovesIt) {
    const Documents documents;
    fs::create_directory(documents.directory());
    fs::permissions(documents.directory(), fs::perms(0755)); // is closed to others
    std::set<std::string> names;
    MRLDocIo io;
    for (int i = 0; i < 20; ++i) {
        io.init(0);
        write(io, bytesOf(1001));
        names.insert(io.getName());
        EXPECT_EQ(fs::status(io.getName()).permissions(), fs::perms(0600));
    }
    EXPECT_EQ(fs::status(documents.directory()).permissions(), fs::perms(0700));
    EXPECT_EQ(names.size(), 20U);
    EXPECT_EQ(documents.files(), 1U);
    io.reset();
    EXPECT_EQ(documents.files(), 0U);
}

TEST(DocIo, RefusesADirectoryThatIsNoneOfItsOwn) {
    const Documents documents;
    MRLDocIo io;
    io.init(0);
    write(io, "kept");
    const auto refuses = [&](auto&& make) {
        make();
        expectAssert([&] { write(io, bytesOf(1000)); }, noDirectory);
        fs::remove(documents.directory());
    };
    refuses([&] { fs::create_directory_symlink("/tmp", documents.directory()); });
    refuses([&] { std::ofstream(documents.directory()) << "a file"; });
    if (::geteuid() == 0) {
        refuses([&] {
            fs::create_directory(documents.directory());
            ASSERT_EQ(::chown(documents.directory().c_str(), 4711, 4711), 0);
        });
    }
    EXPECT_STREQ(io.str(), "kept");
    EXPECT_EQ(write(io, bytesOf(1000)), 1000); // the directory can be made again now
}

TEST(DocIo, OutlivesTheRemovalOfItsFileWhileOpenAndNotWhenClosed) {
    const Documents documents;
    MRLDocIo io;
    io.init(0);
    const std::string bytes = bytesOf(1001);
    write(io, bytes);
    io.close();
    EXPECT_EQ(io.pcount(), 0U);
    EXPECT_EQ(readBack(io), bytes);
    fs::remove_all(documents.directory());
    EXPECT_EQ(readBack(io), bytes);
    io.close();
    EXPECT_THROW(io.reopen(), PLQStreamError);
    MRLDocIo next;
    next.init(0);
    EXPECT_EQ(write(next, bytes), 1001); // makes a new directory
    next.close();
    fs::rename(next.getName(), documents.temp() + "/moved");
    fs::create_symlink(documents.temp() + "/moved", next.getName());
    EXPECT_THROW(next.reopen(), PLQStreamError);
    next.reset();
    EXPECT_TRUE(fs::exists(documents.temp() + "/moved"));
}

TEST_P(Store, SaysMinusOneOnAFullDiskAndGoesOnWhenThereIsRoom) {
    const Documents documents(GetParam());
    MRLDocIo io;
    io.init(0);
    const std::string bytes = bytesOf(400000);
    EXPECT_EQ(write(io, bytes.substr(0, 900)), 900);
    {
        const FullDisk disk(500);
        EXPECT_EQ(write(io, bytes.substr(900)), -1);
        EXPECT_EQ(write(io, bytes.substr(900)), -1);
        EXPECT_EQ(documents.files(), 1U);
        EXPECT_EQ(std::string(io.str()), bytes.substr(0, 900));
    }
    EXPECT_EQ(write(io, bytes.substr(900)), 399100);
    EXPECT_EQ(readBack(io), bytes);
    const FullDisk disk(500000);
    io.seek(0, eMRLDocIo_SeekEnd);
    EXPECT_EQ(write(io, bytes), -1);
    EXPECT_LT(io.pcount(), 800000U);
}

TEST_P(Store, NeverPassesOffHalfOfAPackedDocument) {
    const Documents documents(GetParam());
    MRLDocIo io;
    io.init(1);
    const FullDisk disk(2000);
    std::int64_t result = 0;
    for (int i = 0; i < 100 && result == 0; ++i) {
        result = write(io, bytesOf(100000));
    }
    EXPECT_EQ(result, -1);
    EXPECT_EQ(io.write("more", 4), -1);
    EXPECT_THROW(io.reopen(), PLQStreamError);
    io.init(0); // is as good as new
    EXPECT_EQ(write(io, "next"), 4);
    EXPECT_EQ(documents.files(), 0U);
}

TEST(DocIo, FindsThatItsEncryptedFileWasChanged) {
    const Documents documents(true);
    const std::string bytes = bytesOf(500000);
    MRLDocIo io;
    io.init(0);
    write(io, bytes);
    io.reopen();
    std::fstream file(io.getName(), std::ios::in | std::ios::out | std::ios::binary);
    const std::string stored((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(stored.find("row 0"), std::string::npos);
    file.clear();
    file.seekp(static_cast<std::streamoff>(stored.size() / 2));
    file.put(static_cast<char>(stored[stored.size() / 2] ^ 1)).flush();
    EXPECT_EQ(readBack(io), "(failed)");
    EXPECT_EQ(io.hasFailed(), 1);
}

TEST(DocIo, KeepsItsBufferBeyondTerminateAndNeverSharesItWithASizeOfLater) {
    auto documents = std::make_unique<Documents>();
    MRLDocIo small;
    small.init(0);
    documents.reset();
    expectAssert([] { MRLDocIo io; },
                 "HBL_ASSERT_NAMED(m_bufferSize, \"MRLDocIo::MRLDocIo() - MRLDocIo not initialized.\");");
    EXPECT_EQ(write(small, bytesOf(1000)), 1000);
    documents = std::make_unique<Documents>(false, "5000");
    EXPECT_EQ(small.seek(1001, eMRLDocIo_SeekBegin), -1);
    small.init(0);
    EXPECT_EQ(write(small, bytesOf(5000)), 5000);
    small.init(0);
    EXPECT_EQ(small.seek(4, eMRLDocIo_SeekBegin), 4);
    small.write("a", 1); // what is skipped shows nothing of the document before
    EXPECT_EQ(std::string(small.str(), small.pcount()), std::string("\0\0\0\0a", 5));
    documents.reset();
    expectAssert([&] { small.init(0); }, "HBL_ASSERT(m_initCount);");
}

TEST(DocIo, SharesItsPoolBetweenThreads) {
    const Documents documents;
    mrl::test::inThreads(8, [](int t) {
        for (int i = 0; i < 100; ++i) {
            MRLDocIo::initialize();
            MRLDocIo io;
            io.init(0);
            const std::string bytes(i % 10 == 0 ? 1500 : 500, static_cast<char>('a' + t));
            write(io, bytes);
            EXPECT_EQ(readBack(io), bytes);
            MRLDocIo::terminate();
        }
    });
    EXPECT_EQ(documents.files(), 0U);
}

} // namespace
