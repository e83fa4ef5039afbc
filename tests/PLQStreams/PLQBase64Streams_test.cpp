#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQBase64InputStream.h"
#include "PLQStreams/PLQBase64OutputStream.h"
#include "PLQStreams/Streams.h"

#include <gtest/gtest.h>

using testing::Values;

namespace {

struct Pair {
    std::string_view bytes;
    std::string_view text;
};

// The first seven stand in RFC 4648.
constexpr Pair s_pairs[] = {{"", ""},
                            {"f", "Zg=="},
                            {"fo", "Zm8="},
                            {"foo", "Zm9v"},
                            {"foob", "Zm9vYg=="},
                            {"fooba", "Zm9vYmE="},
                            {"foobar", "Zm9vYmFy"},
                            {"\xFB\xFF\xFE", "+//+"},
                            {std::string_view("\0\0", 2), "AAA="}};

std::string decoded(std::string_view text, std::size_t chunk) {
    ChunkedInput source(text, chunk);
    PLQBase64InputStream in(source);
    return readInChunks(in, chunk);
}

} // namespace

TEST(PLQBase64Streams, AgreeWithTheStandardHoweverTheBytesArrive) {
    for (auto chunk : s_chunks) {
        for (const Pair& pair : s_pairs) {
            PLQMemoryOutputStream memory(16, 16);
            {
                PLQBase64OutputStream out;
                out.wrap(memory);
                writeInChunks(out, pair.bytes, chunk);
            } // destruction ends the data
            EXPECT_EQ(contentOf(memory), pair.text) << chunk;
            EXPECT_EQ(decoded(pair.text, chunk), pair.bytes) << chunk;
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

struct NotBase64 {
    std::string_view text;
    const char* reason;
    std::string_view before = {}; // bytes handed out before the failure
};

class RefusedBase64 : public testing::TestWithParam<NotBase64> {};

INSTANTIATE_TEST_SUITE_P(
    Texts, RefusedBase64,
    Values(NotBase64{"Zm9vZm*v", "foreign '*' at offset 6.", "foo"},
           NotBase64{"<html/>", "foreign '<' at offset 0."}, NotBase64{"Zm9-", "foreign '-' at offset 3."},
           NotBase64{std::string_view("Zm9v\0", 5), "foreign byte 0x00 at offset 4.", "foo"},
           NotBase64{"\xC3\xA4", "foreign byte 0xC3 at offset 0."},
           NotBase64{"=", "misplaced padding '=' at offset 0."},
           NotBase64{"Z===", "misplaced padding '=' at offset 1."},
           NotBase64{"Zg===", "misplaced padding '=' at offset 4.", "f"},
           NotBase64{"Zg=g", "data behind the padding, 'g' at offset 3."},
           NotBase64{"Zg== Zg==", "data behind the padding, 'Z' at offset 5.", "f"},
           NotBase64{"Zm9v Z", "it ends within a group of four at offset 6.", "foo"},
           NotBase64{"Zg=", "it ends within a group of four at offset 3."}));

TEST_P(RefusedBase64, FailsAtItsOffsetAfterWhatIsGood) {
    for (auto chunk : s_chunks) {
        ChunkedInput source(GetParam().text, chunk);
        PLQBase64InputStream in(source);
        std::string good(GetParam().before.size(), '\0');
        EXPECT_EQ(in.readFully(good.data(), good.size()), good.size());
        EXPECT_EQ(good, GetParam().before);
        for ([[maybe_unused]] int again : {1, 2})
            EXPECT_EQ(failureOf([&] { in.read(); }), "This is not Base64: " + std::string(GetParam().reason));
    }
}
