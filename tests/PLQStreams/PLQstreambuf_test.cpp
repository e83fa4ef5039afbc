#include "PLQStreams/PLQstreambuf.h"
#include "PLQStreams/Streams.h"

#include <gtest/gtest.h>

#include <istream>
#include <ostream>

TEST(PLQstreambuf, WritesThroughAStandardStream) {
    const std::string data = noise(20'000);
    for (const std::size_t chunk : {1, 7, 4095, 4096, 20'000}) {
        PLQMemoryOutputStream memory(64, 64);
        PLQstreambuf buffer(memory);
        std::ostream out(&buffer);
        out << 42 << ' ';
        for (std::size_t at = 0; at < data.size(); at += chunk)
            out << data.substr(at, chunk);
        out << std::flush;
        EXPECT_TRUE(contentOf(memory) == "42 " + data) << chunk;
    }
}

TEST(PLQstreambuf, HandsOnWhatIsBufferedWhenItEnds) {
    PLQMemoryOutputStream first(64, 64);
    PLQMemoryOutputStream second(64, 64);
    {
        PLQstreambuf buffer(first);
        std::ostream out(&buffer);
        out << "one";
        buffer.wrap(second);
        out << "two";
    }
    EXPECT_EQ(contentOf(first) + "," + contentOf(second), "one,two");
}

TEST(PLQstreambuf, ReadsThroughAStandardStream) {
    const std::string data = noise(20'000);
    for (auto chunk : s_chunks) {
        const std::string all = "17 lines\n" + data;
        ChunkedInput input(all, chunk);
        PLQstreambuf buffer(input);
        std::istream in(&buffer);
        int number = 0;
        std::string word;
        in >> number >> word;
        EXPECT_EQ(number, 17);
        EXPECT_EQ(word, "lines");
        EXPECT_EQ(in.get(), '\n');
        EXPECT_EQ(in.get(), static_cast<unsigned char>(data[0]));
        std::string rest(data.size(), '\0');
        in.read(rest.data(), static_cast<std::streamsize>(rest.size()));
        EXPECT_TRUE(in.eof());
        EXPECT_EQ(in.gcount(), static_cast<std::streamsize>(data.size() - 1));
        EXPECT_TRUE(rest.substr(0, data.size() - 1) == data.substr(1)) << chunk;
    }
}

TEST(PLQstreambuf, TurnsAFailureIntoBadbitOrLetsItThrough) {
    FullOutput full(0);
    PLQstreambuf buffer(full);
    std::ostream quiet(&buffer);
    quiet << "lost" << std::flush;
    EXPECT_TRUE(quiet.bad());

    std::ostream loud(&buffer);
    loud.exceptions(std::ios::badbit);
    EXPECT_EQ(failureOf([&] { loud << "lost" << std::flush; }), "full");
}

TEST(PLQstreambuf, WithoutAStreamTakesAndGivesNothing) {
    PLQstreambuf buffer;
    EXPECT_FALSE(std::ostream(&buffer) << "a");
    EXPECT_EQ(std::istream(&buffer).get(), std::istream::traits_type::eof());
}
