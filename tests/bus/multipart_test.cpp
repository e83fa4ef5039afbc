// Multipart bodies, read however the bytes arrive, and written.

#include "http/MultipartAnswer.h"
#include "http/MultipartParts.h"
#include "support/ChunkedStream.h"
#include "support/Files.h"

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

struct Body {
    const char* name;
    std::string body;
    const char* parts; // or what it is refused with
};

const std::string head = "--b1\nContent-Type: t\n\n";

TEST(MultipartBodies, AreReadInPiecesOfEverySize) {
    const Body bodies[] = {
        {"two parts", "--b1\nContent-Type: a\n\none\n--b1\ncontent-TYPE:b\nContent-ID: <x>\n\ntwo\n--b1--\n",
         "a|one;b|two"},
        {"text in front and behind", "hello\n--b1 \t\nContent-Type: a\n\none\n--b1--\nbye\n--b1\n", "a|one"},
        {"no line end at the end", head + "x\n--b1--", "t|x"},
        {"nearly a delimiter inside", head + "\n--b\n\n-\r--b1\n--b1--", "t|\r\n--b\r\n\r\n-\r--b1"},
        {"an empty part, and none", head + "\n--b1--", "t|"},
        {"no part", "--b1--", ""},
        {"bytes of all kinds", head + std::string("\0\xff\r", 3) + "\n--b1--", "t|"},
    };
    for (const Body& body : bodies)
        for (const std::size_t pieces : {1, 2, 3, 7, 4096}) {
            const std::string found = partsOf(crlf(body.body), pieces);
            const bool binary = body.name == std::string("bytes of all kinds");
            EXPECT_EQ(found, binary ? std::string("t|\0\xff\r", 5) : body.parts)
                << body.name << ' ' << pieces;
        }
}

TEST(MultipartBodies, AreRefusedWhenTheyBreakTheirRules) {
    std::string many;
    for (int i = 0; i <= MultipartParts::maxParts; ++i)
        many += head + "x\n";
    const Body bodies[] = {
        {"nothing", "", "ends without"},
        {"no delimiter", "hello\n", "ends without"},
        {"cut off in a part", head + "half", "ends without"},
        {"cut off before the last dashes", head + "x\n--b1", "ends in the headers"},
        {"cut off in a header", "--b1\nContent-Ty", "ends in the headers"},
        {"a boundary that goes on", "--b12\n\nx\n--b1--", "part of the content"},
        {"a header without a colon", "--b1\nhello\n\nx\n--b1--", "'Name: value'"},
        {"a header twice", "--b1\nContent-Type: a\ncontent-type: b\n\nx\n--b1--", "twice"},
        {"a control character", std::string("--b1\nA: \x01\n\nx\n--b1--"), "'Name: value'"},
        {"endless headers", "--b1\nA: " + std::string(9000, 'x') + "\n\nx\n--b1--", "8192 bytes"},
        {"endless parts", many + "--b1--", "1000 parts"},
    };
    for (const Body& body : bodies)
        for (const std::size_t pieces : {1, 4096})
            EXPECT_THAT([&] { partsOf(crlf(body.body), pieces); },
                        testing::ThrowsMessage<Unreadable>(testing::HasSubstr(body.parts)))
                << body.name;
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
