#include "TavelTK/detail/MultipartReader.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace mrl::detail;

/// A text that comes in pieces of one size.
class Pieces : public ByteSource {
public:
    Pieces(std::string text, std::size_t piece)
        : m_text(std::move(text))
        , m_piece(piece) {}
    std::size_t read(char* buffer, std::size_t size) override {
        const std::size_t count = std::min({size, m_piece, m_text.size() - m_at});
        std::memcpy(buffer, m_text.data() + m_at, count);
        m_at += count;
        return count;
    }

private:
    std::string m_text;
    std::size_t m_piece;
    std::size_t m_at = 0;
};

struct Refused {
    MultipartReader::Fault fault;
    std::string cause;
};

/// All parts, each as its id, a colon and its bytes; pieces of both directions have one size.
std::vector<std::string> parts(const std::string& body, std::size_t piece, std::int64_t maxParts = 0) {
    Pieces source(body, piece);
    MultipartReader reader(source, "b", 200, maxParts,
                           [](MultipartReader::Fault fault, const std::string& cause) {
                               throw Refused{fault, cause};
                           });
    std::vector<std::string> found;
    std::string buffer(piece, '\0');
    while (reader.next()) {
        const std::string* id = reader.headers().find("content-id");
        found.push_back((id ? *id : "") + ":");
        while (const std::size_t count = reader.read(buffer.data(), piece))
            found.back().append(buffer, 0, count);
    }
    return found;
}

TEST(MultipartReader, FindsTheSamePartsHoweverTheBytesArrive) {
    const std::string large(200000, 'x');
    const std::string body =
        "a preamble\r\n--b  \r\nContent-ID: <1>\r\n\r\n<r/>"
        "\r\n--b\r\n\r\nno header, \r\n-- \r\n-b \r\n-\r\r\n"
        "\r\n--b\r\nContent-ID:2\r\n\r\n\r\n--b\r\nContent-ID: 3\r\n\r\n--b\r\nContent-ID: 4\r\n\r\n" +
        large + "\r\n--b--\r\nan epilogue --b";
    const std::vector<std::string> expected{"<1>:<r/>", ":no header, \r\n-- \r\n-b \r\n-\r\r\n",
                                            "2:", "3:", "4:" + large};
    for (const std::size_t piece : {1, 2, 3, 7, 4096, 1000000})
        EXPECT_EQ(parts(body, piece), expected) << "in pieces of " << piece;
}

TEST(MultipartReader, RefusesWhatIsNoMultipart) {
    using enum MultipartReader::Fault;
    struct Row {
        std::string body;
        MultipartReader::Fault fault;
    };
    const std::vector<Row> table{{"", endsTooSoon},
                                 {"--b", endsTooSoon},
                                 {"--b\r\nA: b\r\n", endsTooSoon},
                                 {"--b\r\nA: b\r\n\r\nbody\r\n--", endsTooSoon},
                                 {"--bc\r\n\r\n\r\n--b--", malformed},
                                 {"--b\r\nno header\r\n\r\n\r\n--b--", malformed},
                                 {"--b\r\nA: " + std::string(300, 'a') + "\r\n\r\n\r\n--b--", tooLarge},
                                 {"--b\r\n\r\n\r\n--b\r\n\r\n\r\n--b\r\n\r\n\r\n--b--", tooLarge}};
    for (const Row& row : table)
        for (const std::size_t piece : {1, 4096})
            try {
                parts(row.body, piece, 2);
                ADD_FAILURE() << "taken: " << row.body;
            } catch (const Refused& refused) {
                EXPECT_EQ(refused.fault, row.fault) << row.body << ": " << refused.cause;
            }
}

} // namespace
