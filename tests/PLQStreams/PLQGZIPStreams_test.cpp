#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQGZIPInputStream.h"
#include "PLQStreams/PLQGZIPOutputStream.h"
#include "PLQStreams/Streams.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

// "hello" in one stored block, put together by hand: header, block, CRC-32 0x3610A686, length.
constexpr std::string_view s_hello{"\x1F\x8B\x08\0\0\0\0\0\0\x03"
                                   "\x01\x05\0\xFA\xFFhello"
                                   "\x86\xA6\x10\x36\x05\0\0\0",
                                   28};

std::string packed(std::string_view data, std::size_t chunk) {
    PLQMemoryOutputStream memory(64, 64);
    PLQGZIPOutputStream out;
    out.wrap(memory);
    writeInChunks(out, data, chunk);
    out.close();
    return contentOf(memory);
}

std::string unpacked(std::string_view data, std::size_t chunk) {
    ChunkedInput source(data, chunk);
    PLQGZIPInputStream in(source);
    return readInChunks(in, chunk);
}

std::string failureToUnpack(std::string_view data, std::size_t chunk) {
    return failureOf([&] { unpacked(data, chunk); });
}

} // namespace

TEST(PLQGZIPStreams, GiveBackWhatWasWritten) {
    const std::string data = noise(40'000) + std::string(60'000, 'a');
    for (auto chunk : s_chunks) {
        const std::string gzip = packed(data, chunk);
        EXPECT_LT(gzip.size(), 41'000u);
        EXPECT_TRUE(unpacked(gzip, chunk) == data) << chunk;
    }
}

TEST(PLQGZIPInputStream, ReadsOneMemberOrSeveral) {
    for (auto chunk : s_chunks) {
        EXPECT_EQ(unpacked(s_hello, chunk), "hello");
        EXPECT_EQ(unpacked(std::string(s_hello) + std::string(s_hello), chunk), "hellohello");
        EXPECT_EQ(unpacked("", chunk), "") << "what an unused output stream leaves";
    }
}

TEST(PLQGZIPInputStream, RefusesEveryTruncation) {
    for (auto chunk : s_chunks)
        for (std::size_t length = 1; length < s_hello.size(); ++length)
            EXPECT_EQ(failureToUnpack(s_hello.substr(0, length), chunk),
                      "This is not sound gzip data: it ends early at offset " + std::to_string(length) + ".");
}

TEST(PLQGZIPInputStream, RefusesEveryDamagedByteThatMatters) {
    for (std::size_t i = 0; i < s_hello.size(); ++i) {
        if (i >= 4 && i <= 9)
            continue; // time and origin of the file mean nothing here
        std::string damaged(s_hello);
        damaged[i] = static_cast<char>(damaged[i] ^ 0x04);
        for (auto chunk : s_chunks)
            EXPECT_THAT(failureToUnpack(damaged, chunk), StartsWith("This is not sound gzip data: ")) << i;
    }
    EXPECT_THAT(failureToUnpack("<html>502 Bad Gateway</html>", 7), HasSubstr("incorrect header check"));
    EXPECT_THAT(failureToUnpack(std::string(s_hello) + "<html>", 7), HasSubstr("at offset 30."));
}

TEST(PLQGZIPInputStream, UnpacksABombOnlyAsFarAsItIsRead) {
    constexpr std::size_t size = 64 << 20;
    const std::string zeros(1 << 20, '\0');
    PLQMemoryOutputStream bomb(64, 64);
    PLQGZIPOutputStream out(bomb);
    for (std::size_t written = 0; written < size; written += zeros.size())
        out.write(zeros.data(), zeros.size());
    out.close();
    ASSERT_LT(bomb.length(), size / 500);

    PLQMemoryInputStream source(bomb.bytes(), bomb.length());
    PLQGZIPInputStream in(source);
    char block[4096];
    std::size_t total = 0;
    for (std::size_t got = 0; !PLQInputStream::isEnd(got = in.read(block, sizeof block)); total += got)
        ASSERT_LE(got, sizeof block);
    EXPECT_EQ(total, size);
}

TEST(PLQGZIPOutputStream, LeavesNothingBehindWhenNothingWasWritten) {
    PLQMemoryOutputStream memory(16, 16);
    PLQGZIPOutputStream out(memory);
    out.flush();
    out.write("", 0);
    out.close();
    EXPECT_EQ(memory.length(), 0u);
    out.write("late", 4); // nothing was ended yet
    out.close();
    EXPECT_EQ(unpacked(contentOf(memory), 7), "late");
    EXPECT_THROW(out.write("more", 4), HBLIllegalStateError);
}

TEST(PLQGZIPOutputStream, EndsItsDataWithItsLifeUnlessAnExceptionPassesBy) {
    PLQMemoryOutputStream memory(16, 16);
    PLQGZIPOutputStream(memory).write("hello", 5);
    EXPECT_EQ(unpacked(contentOf(memory), 7), "hello");

    memory.reset();
    try {
        PLQGZIPOutputStream out(memory);
        out.write(noise(100'000).data(), 100'000);
        throw 1;
    } catch (int) {
    }
    EXPECT_THAT(failureToUnpack(contentOf(memory), 4096), HasSubstr("it ends early"));
}

TEST(PLQGZIPOutputStream, NeverMakesDataWithAHoleLookWhole) {
    FullOutput full(20'000);
    PLQGZIPOutputStream out(full);
    const std::string data = noise(100'000);
    EXPECT_EQ(failureOf([&] { out.write(data.data(), data.size()); }), "full");
    const std::size_t taken = full.taken.size();
    EXPECT_THROW(out.write("a", 1), HBLIllegalStateError);
    out.close();
    EXPECT_EQ(full.taken.size(), taken);

    FullOutput headerOnly(10);
    PLQGZIPOutputStream last(headerOnly);
    last.write("a", 1);
    EXPECT_EQ(failureOf([&] { last.close(); }), "full");
}
