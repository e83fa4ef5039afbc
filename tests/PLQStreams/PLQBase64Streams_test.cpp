#include "support/Table.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQBase64InputStream.h"
#include "PLQStreams/PLQBase64OutputStream.h"
#include "PLQStreams/Streams.h"

#include <gtest/gtest.h>

namespace {

std::string decoded(std::string_view text, std::size_t chunk) {
    ChunkedInput source(text, chunk);
    PLQBase64InputStream in(source);
    return readInChunks(in, chunk);
}

} // namespace

TEST(PLQBase64Streams, AgreeWithTheStandardHoweverTheBytesArrive) {
    for (auto chunk : s_chunks) {
        for (const auto& row : mrl::test::table("base64.txt")) {
            PLQMemoryOutputStream memory(16, 16);
            {
                PLQBase64OutputStream out;
                out.wrap(memory);
                writeInChunks(out, row[0], chunk);
            } // destruction ends the data
            EXPECT_EQ(contentOf(memory), row[1]) << chunk;
            EXPECT_EQ(decoded(row[1], chunk), row[0]) << chunk;
        }
    }
}

TEST(PLQBase64Streams, GiveBackLongData) {
    for (auto length : {3071, 3072, 3073, 20'000}) {
        const std::string data = noise(length);
        for (auto chunk : s_chunks) {
            PLQMemoryOutputStream memory(16, 16);
            PLQBase64OutputStream out(memory);
            writeInChunks(out, data, chunk);
            out.close();
            EXPECT_EQ(memory.length(), (data.size() + 2) / 3 * 4);
            EXPECT_TRUE(decoded(contentOf(memory), chunk) == data) << length << " in " << chunk;
        }
    }
}

TEST(PLQBase64OutputStream, EndsOneTextAndBeginsTheNextWhenWrappedAnew) {
    PLQMemoryOutputStream first(16, 16);
    PLQMemoryOutputStream second(16, 16);
    PLQBase64OutputStream out(first);
    out.write("f", 1);
    out.wrap(second);
    out.write("fo", 2);
    out.unWrap();
    EXPECT_EQ(contentOf(first), "Zg==");
    EXPECT_EQ(contentOf(second), "Zm8=");
}

TEST(PLQBase64OutputStream, ReportsAFullDownstreamFromUnWrapButNotFromItsDestructor) {
    FullOutput full(4);
    PLQBase64OutputStream out(full);
    out.write("foob", 4);
    EXPECT_EQ(failureOf([&] { out.unWrap(); }), "full");
    EXPECT_EQ(full.taken, "Zm9v");
    PLQBase64OutputStream(full).write("f", 1);
}

TEST(PLQBase64InputStream, AllowsWhiteSpaceAnywhere) {
    for (auto chunk : s_chunks)
        EXPECT_EQ(decoded(" Z\r\n m9\tvY\f\vg=\n= \n", chunk), "foob");
}

TEST(PLQBase64InputStream, FailsAtItsOffsetAfterWhatIsGood) {
    for (const auto& row : mrl::test::table("refused_base64.txt"))
        for (auto chunk : s_chunks) {
            ChunkedInput source(row[0], chunk);
            PLQBase64InputStream in(source);
            std::string good(row[2].size(), '\0');
            EXPECT_EQ(in.readFully(good.data(), good.size()), good.size());
            EXPECT_EQ(good, row[2]);
            for ([[maybe_unused]] int again : {1, 2})
                EXPECT_EQ(failureOf([&] { in.read(); }), "This is not Base64: " + row[1]);
        }
}
