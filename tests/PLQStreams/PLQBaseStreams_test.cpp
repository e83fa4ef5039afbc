#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQFilterInputStream.h"
#include "PLQStreams/PLQFilterOutputStream.h"
#include "PLQStreams/Streams.h"

#include <gtest/gtest.h>

TEST(PLQInputStream, ReadsAByteAsANumberThatIsNotTheEnd) {
    PLQMemoryInputStream in("\xFF\0", 2);
    EXPECT_EQ(in.read(), 255);
    EXPECT_EQ(in.read(), 0);
    EXPECT_EQ(in.read(), -1);
}

TEST(PLQInputStream, ReadsFullyThoughTheBytesComeInPieces) {
    for (auto chunk : s_chunks) {
        ChunkedInput in("abcdefgh", chunk);
        char block[6];
        EXPECT_EQ(in.readFully(block, 5), 5u);
        EXPECT_EQ(std::string(block, 5), "abcde");
        EXPECT_EQ(in.readFully(block, 6), 3u) << "the end comes first";
        EXPECT_EQ(in.readFully(block, 6), PLQInputStream::endOfStream);
        EXPECT_EQ(in.readFully(block, 0), 0u);
    }
}

TEST(PLQInputStream, AppendsToAByteBuffer) {
    const std::string data = noise(200'000);
    for (auto chunk : {std::size_t{7}, std::size_t{4096}, std::size_t{1'000'000}}) {
        ChunkedInput in(data, chunk);
        HBLByteBuffer buffer(1, 16, 0);
        buffer.appendChars(">", 1);
        EXPECT_EQ(in.read(buffer, 5), 5u);
        EXPECT_EQ(in.readFully(buffer, PLQInputStream::endOfStream), data.size() - 5)
            << "asking for everything needs no room for everything";
        EXPECT_EQ(in.read(buffer, 5), PLQInputStream::endOfStream);
        EXPECT_EQ(std::string(buffer.str(), buffer.pcount()), ">" + data);
    }
}

TEST(PLQInputStream, RefusesWhatItDoesNotOffer) {
    PLQMemoryInputStream in("", 0);
    PLQFilterInputStream filter(in);
    EXPECT_EQ(failureOf([&] { in.unread("a", 1); }), "not implemented");
    for (PLQInputStream* stream :
         {static_cast<PLQInputStream*>(&in), static_cast<PLQInputStream*>(&filter)}) {
        EXPECT_FALSE(stream->canUnread() || stream->canTimeout() || stream->canCancel());
        EXPECT_THROW(stream->setTimeout(1), HBLIllegalStateError);
        EXPECT_THROW(stream->setCancel(1), HBLIllegalStateError);
        EXPECT_THROW(stream->cancel(), HBLIllegalStateError);
    }
}

namespace {

class PatientInput : public PLQMemoryInputStream {
public:
    PatientInput()
        : PLQMemoryInputStream("abc", 3) {}
    int canTimeout() override { return 1; }
    void setTimeout(int milliseconds) override { limit = milliseconds; }
    int getTimeout() override { return limit; }
    int canCancel() override { return 1; }
    void setCancel(int armed) override { cancelArmed = armed; }
    int getCancel() override { return cancelArmed; }
    void cancel() override { cancelled = true; }
    void close() override { closed = true; }

    int limit = 0;
    int cancelArmed = 0;
    bool cancelled = false;
    bool closed = false;
};

} // namespace

TEST(PLQFilterInputStream, PassesTimeLimitsCancellingAndCloseToWhatItWraps) {
    PatientInput in;
    PLQFilterInputStream filter(in);
    filter.setTimeout(250);
    filter.setCancel(1);
    filter.cancel();
    filter.close();
    EXPECT_TRUE(in.limit == 250 && in.cancelArmed == 1 && in.cancelled && in.closed);
    EXPECT_TRUE(filter.canTimeout() == 1 && filter.getTimeout() == 250);
    EXPECT_TRUE(filter.canCancel() == 1 && filter.getCancel() == 1);
    EXPECT_EQ(readInChunks(filter, 2), "abc");
}

TEST(PLQFilterStreams, NeedAStreamToWorkOn) {
    char c = 0;
    PLQFilterInputStream in;
    PLQFilterOutputStream out;
    EXPECT_THROW(in.read(&c, 1), HBLAssertError);
    EXPECT_EQ(failureOf([&] { out.write("a", 1); }), "HBL_ASSERT(p_downstream);");
    in.close();
    out.close();

    PLQMemoryOutputStream memory(1, 1);
    out.wrap(memory);
    out.write("abc", 3);
    EXPECT_EQ(contentOf(memory), "abc");
    out.unWrap();
    EXPECT_THROW(out.write("a", 1), HBLAssertError);
}

TEST(PLQMemoryOutputStream, KeepsEveryByteAndATerminator) {
    const std::string data = noise(100'000);
    for (auto chunk : s_chunks) {
        PLQMemoryOutputStream memory(0, 0);
        EXPECT_STREQ(memory.bytes(), "");
        writeInChunks(memory, data, chunk);
        memory.close();
        EXPECT_EQ(contentOf(memory), data);
        EXPECT_EQ(memory.bytes()[memory.length()], '\0');
        memory.reset();
        EXPECT_EQ(memory.length(), 0u);
        EXPECT_STREQ(memory.bytes(), "");
    }
}

TEST(PLQMemoryInputStream, TakesNoBytesFromNowhere) {
    EXPECT_EQ(PLQMemoryInputStream(nullptr, 0).read(), -1);
    EXPECT_THROW(PLQMemoryInputStream(nullptr, 1), HBLAssertError);
}
