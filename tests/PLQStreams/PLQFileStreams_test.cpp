#include "support/Files.h"
#include "support/TemporaryDirectory.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQFileInputStream.h"
#include "PLQStreams/PLQFileOutputStream.h"
#include "PLQStreams/Streams.h"

#include <gtest/gtest.h>

namespace {

class PLQFileStreams : public testing::Test {
protected:
    std::string fileContent() const { return mrl::test::bytesOfFile(m_path); }

    const mrl::test::TemporaryDirectory m_directory;
    const std::string m_path = m_directory.path() + "/file";
};

} // namespace

TEST_F(PLQFileStreams, GiveBackWhatWasWritten) {
    const std::string data = noise(50'000); // more than three buffers
    for (auto chunk : {1, 2, 3, 7, 4096, 16384, 50'000}) {
        PLQFileOutputStream out(m_path);
        writeInChunks(out, data, chunk);
        out.close();
        EXPECT_TRUE(fileContent() == data) << chunk;
        PLQFileInputStream in(m_path);
        EXPECT_TRUE(readInChunks(in, chunk) == data) << chunk;
        EXPECT_EQ(in.read(), -1);
    }
}

TEST_F(PLQFileStreams, CreateTheFileAtOnceEmptyOrToBeAppendedTo) {
    PLQFileOutputStream(m_path, 0).write("one", 3); // the destructor closes
    PLQFileOutputStream(m_path, 1).write("two", 3);
    EXPECT_EQ(fileContent(), "onetwo");
    PLQFileOutputStream fresh(m_path, 0);
    EXPECT_EQ(fileContent(), "");
    fresh.write("three", 5);
    fresh.flush();
    EXPECT_EQ(fileContent(), "three");
}

TEST_F(PLQFileStreams, RefuseWorkAfterClose) {
    PLQFileOutputStream out(m_path);
    out.close();
    out.close();
    out.flush();
    EXPECT_THROW(out.write("a", 1), HBLIllegalStateError);
    PLQFileInputStream in(m_path);
    in.close();
    in.close();
    EXPECT_THROW(in.read(), HBLIllegalStateError);
}

TEST_F(PLQFileStreams, NamePathAndReasonOfAFailure) {
    EXPECT_EQ(failureOf([] { PLQFileInputStream in("/no/such/file"); }),
              "The file \"/no/such/file\" cannot be opened for reading: No such file or directory.");
    EXPECT_EQ(failureOf([] { PLQFileOutputStream out("/no/such/file"); }),
              "The file \"/no/such/file\" cannot be opened for writing: No such file or directory.");
    EXPECT_EQ(failureOf([] { PLQFileInputStream("/").read(); }),
              "The file \"/\" cannot be read: Is a directory.");
}

TEST_F(PLQFileStreams, StayBrokenOnceAWriteFailed) {
    const std::string full = "The file \"/dev/full\" cannot be written: No space left on device.";
    PLQFileOutputStream out("/dev/full");
    out.write("buffered", 8);
    EXPECT_EQ(failureOf([&] { out.flush(); }), full);
    EXPECT_EQ(failureOf([&] { out.write("more", 4); }), full);
    out.close(); // was reported

    PLQFileOutputStream late("/dev/full");
    late.write("buffered", 8);
    EXPECT_EQ(failureOf([&] { late.close(); }), full);

    PLQFileOutputStream large("/dev/full");
    EXPECT_EQ(failureOf([&] { large.write(std::string(20'000, 'x').data(), 20'000); }), full);
}
