// Multipart bodies, read however the bytes arrive, and written.

#include "http/MultipartAnswer.h"
#include "http/MultipartParts.h"
#include "support/ChunkedStream.h"
#include "support/Files.h"
#include "support/Table.h"

#include <gmock/gmock.h>

#include <sstream>

namespace mrl::bus {
namespace {

std::string crlf(const std::string& text) {
    std::string result;
    for (const char c : text)
        result += c == '\n' ? "\r\n" : std::string(1, c);
    return result;
}

/// "type|content;type|content"
std::string partsOf(const std::string& body, std::size_t pieces) {
    mrl::test::ChunkedStream in(body, pieces);
    MultipartParts parts(in, "b1");
    std::string result;
    while (parts.next()) {
        result += (result.empty() ? "" : ";") + parts.headers().find("content-type")->second + "|";
        char buffer[5];
        for (std::size_t got = parts.read(buffer, 5); got != PLQInputStream::endOfStream;
             got = parts.read(buffer, 5))
            result.append(buffer, got);
    }
    return result;
}

TEST(MultipartBodies, AreReadInPiecesOfEverySize) {
    for (const auto& row : mrl::test::table("multipart_bodies.txt"))
        for (const std::size_t pieces : {1, 2, 3, 7, 4096})
            EXPECT_EQ(partsOf(crlf(row[1]), pieces), row[2]) << row[0] << ' ' << pieces;
}

TEST(MultipartBodies, AreRefusedWhenTheyBreakTheirRules) {
    for (const auto& row : mrl::test::table("refused_multipart_bodies.txt"))
        for (const std::size_t pieces : {1, 4096})
            EXPECT_THAT([&] { partsOf(crlf(row[1]), pieces); },
                        testing::ThrowsMessage<Unreadable>(testing::HasSubstr(row[2])))
                << row[0];
    mrl::test::ChunkedStream in("", 1);
    for (const std::string& boundary : {std::string(), std::string(71, 'b'), std::string("a\r\n")})
        EXPECT_THROW(MultipartParts(in, boundary), Unreadable) << boundary;
}

TEST(MultipartAnswers, AreWrittenByteForByte) {
    const Answer answer{false,
                        "<e/>",
                        {{"part1@mrl-bus", "text/csv; charset=utf-8", "a,b", false},
                         {"part2@mrl-bus", "application/pdf", "packed", true}}};
    const MultipartAnswer parts(answer, "b1");
    std::ostringstream written;
    parts.write(written);
    EXPECT_EQ(written.str(), crlf(mrl::test::golden("multipart_answer.txt")));
    EXPECT_EQ(parts.contentType(),
              R"(multipart/related; type="text/xml"; start="<envelope@mrl-bus>"; boundary="b1")");
}

} // namespace
} // namespace mrl::bus
