// What becomes of replies: the good ones, and each of the bad ones.

#include "Exchange.h"
#include "support/ScriptedPeer.h"

namespace {

using enum TavelTKError;

struct Good {
    const char* name;
    std::string bytes;
    Answer::After after = Answer::keep;
};

TEST(Reply, OfEveryFramingIsReadAlike) {
    const std::string type = "Content-Type: text/xml\r\n";
    const std::vector<Good> table{
        {"with a length", reply("<r>reply</r>")},
        {"a fault", reply("<r>reply</r>", "500 Internal Server Error")},
        {"another type of XML", reply("<r>reply</r>", "200 OK", "application/xml;charset=\"UTF-8\"")},
        {"in chunks",
         "HTTP/1.1 200 OK\r\n" + type +
             "Transfer-Encoding: chunked\r\n\r\n3\r\n<r>\r\n00009;x=y\r\nreply</r>\r\n0\r\nT: r\r\n\r\n"},
        {"up to the close", "HTTP/1.0 200 OK\r\n" + type + "\r\n<r>reply</r>", Answer::close},
        {"after interim replies",
         "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 102 P\r\nA: b\r\n\r\n" + reply("<r>reply</r>")},
        {"without a reason, with bare line ends",
         "HTTP/1.1 200\ncontent-type:text/xml\nCONTENT-LENGTH: 12\n\n<r>reply</r>"}};
    for (const Good& row : table) {
        ScriptedPeer peer({{row.bytes, row.after}, {row.bytes, row.after}});
        Toolkit toolkit;
        EXPECT_EQ(call(*toolkit.factory, peer.url()), "<r>reply</r>") << row.name;
        EXPECT_EQ(call(*toolkit.factory, peer.url()), "<r>reply</r>") << row.name << ", the second time";
    }
}

struct Bad {
    const char* name;
    std::string bytes;
    TavelTKError error;
    std::string words;
    Answer::After after = Answer::close;
};

class BadReply : public testing::TestWithParam<Bad> {};

TEST_P(BadReply, IsOneClearFailureAndTheNextCallWorks) {
    ScriptedPeer peer({{GetParam().bytes, GetParam().after}, {reply("<r/>")}});
    Toolkit toolkit;
    toolkit.factory->setProperty("receive-time-limit", 60);
    toolkit.factory->setProperty("max-header-bytes", 2048);
    toolkit.factory->setProperty("max-envelope-bytes", 50000);
    expectFailure([&] { call(*toolkit.factory, peer.url()); }, GetParam().error, GetParam().words);
    EXPECT_EQ(toolkit.pool.size(), 0u) << "a broken connection must not be used again";
    toolkit.factory->setProperty("receive-time-limit", 5000);
    EXPECT_EQ(call(*toolkit.factory, peer.url()), "<r/>");
}

const std::string s_ok = "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n";
const std::string s_chunked = s_ok + "Transfer-Encoding: chunked\r\n\r\n";

INSTANTIATE_TEST_SUITE_P(
    Replies, BadReply,
    testing::Values(
        Bad{"none, closed", "", closedBeforeReply, "the peer closed it"},
        Bad{"none, reset", "", closedBeforeReply, "Connection reset", Answer::reset},
        Bad{"none, silence", "", receiveTimedOut, "awaiting the reply of 127.0.0.1:", Answer::silence},
        Bad{"half a header", "HTTP/1.1 200 OK\r\nContent-", connectionBroke, "within the reply header"},
        Bad{"a shorter body than stated", s_ok + "Content-Length: 10\r\n\r\n<r/>", connectionBroke,
            "4 of 10 bytes"},
        Bad{"a body that stops", s_ok + "Content-Length: 10\r\n\r\n<r/>", receiveTimedOut, "60 ms",
            Answer::silence},
        Bad{"chunks without end", s_chunked + "4\r\n<r/>\r\n", connectionBroke, "size of a chunk"},
        Bad{"half a chunk", s_chunked + "9\r\n<r/>", connectionBroke, "within a chunk, after 4 bytes"},
        Bad{"a bad chunk size", s_chunked + "x\r\n<r/>\r\n", badHttpReply, "'x'"},
        Bad{"a chunk size beyond all bounds", s_chunked + "ffffffffffffffff\r\n", badHttpReply, "'ffff"},
        Bad{"a chunk longer than stated", s_chunked + "2\r\n<r/>\r\n0\r\n\r\n", badHttpReply, "longer"},
        Bad{"garbage", "\x16\x03\x01 garbage\r\n", badHttpReply, "'... garbage'"},
        Bad{"a header line that is none", "HTTP/1.1 200 OK\r\nno header\r\n\r\n", badHttpReply,
            "'no header'"},
        Bad{"a folded header line", "HTTP/1.1 200 OK\r\nA: b\r\n c: d\r\n\r\n", badHttpReply, "' c: d'"},
        Bad{"two lengths", s_ok + "Content-Length: 4\r\nContent-Length: 5\r\n\r\n<r/>", badHttpReply,
            "more than once"},
        Bad{"length and chunks", s_ok + "Content-Length: 4\r\nTransfer-Encoding: chunked\r\n\r\n",
            badHttpReply, "more than once"},
        Bad{"a negative length", s_ok + "Content-Length: -4\r\n\r\n", badHttpReply, "'-4'"},
        Bad{"an unknown coding", s_ok + "Transfer-Encoding: gzip\r\n\r\n", badHttpReply, "'gzip'"},
        Bad{"endless headers", "HTTP/1.1 200 OK\r\n" + std::string(9000, 'a'), replyTooLarge, "reply header"},
        Bad{"HTML from a proxy", reply("<html>\nBad Gateway</html>", "502 Bad Gateway", "text/html"),
            notSoapReply,
            "status 502 Bad Gateway, content type 'text/html', it begins '<html>.Bad Gateway</html>'"},
        Bad{"a redirect", reply("", "302 Found", "text/xml", "Location: http://127.0.0.1:1/\r\n"), redirected,
            "status 302 Found to 'http://127.0.0.1:1/'"},
        Bad{"a body after 204", "HTTP/1.1 204 No Content\r\n\r\n<r/>", notSoapReply, "status 204",
            Answer::silence},
        Bad{"no content type", "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n<r/>", notSoapReply,
            "not stated"},
        Bad{"another charset", reply("<r/>", "200 OK", "text/xml; charset=ISO-8859-1"), wrongCharset,
            "ISO-8859-1"},
        Bad{"a content encoding", reply("x", "200 OK", "text/xml", "Content-Encoding: gzip\r\n"),
            notSoapReply, "gzip"},
        Bad{"an envelope beyond its limit", reply(std::string(50001, 'x')), replyTooLarge,
            "max-envelope-bytes"},
        Bad{"multipart without boundary", reply("", "200 OK", "multipart/related"), badMultipart,
            "no boundary"}),
    [](const auto& row) {
        std::string name = row.param.name;
        std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
        return name;
    });

TEST(Reply, CutOffAnywhereIsABrokenConnectionOnceItHasBegun) {
    const std::vector<std::string> replies{reply("<r>x</r>"), s_chunked + "4\r\n<r/>\r\n0\r\n\r\n"};
    ScriptedPeer peer;
    Toolkit toolkit;
    for (const std::string& whole : replies)
        for (const Answer::After after : {Answer::close, Answer::reset})
            for (std::size_t length = 0; length < whole.size(); ++length) {
                SCOPED_TRACE(whole.substr(0, length));
                peer.add({whole.substr(0, length), after});
                try {
                    call(*toolkit.factory, peer.url());
                    ADD_FAILURE() << "half a reply passed for a whole one";
                } catch (const TavelTKException& e) {
                    const bool hasBegun = e.getErrorCode() == 6;
                    // A reset may overtake the bytes that were sent before it.
                    if (length == 0 || after == Answer::close) {
                        EXPECT_EQ(hasBegun, length != 0) << e.getMessage();
                    }
                    EXPECT_TRUE(hasBegun || e.getErrorCode() == 17) << e.getMessage();
                }
            }
}

TEST(Reply, WithAttachmentsGivesThemOneAfterTheOther) {
    const std::string body =
        "--b\r\nContent-Type: text/xml\r\nContent-ID: <root>\r\n\r\n<r/>"
        "\r\n--b\r\nContent-ID: <one>\r\nContent-Type: text/csv\r\nContent-Encoding: gzip\r\n"
        "Content-Length: 7\r\n\r\nfirst\r\n"
        "\r\n--b\r\nContent-ID: two\r\n\r\nsecond"
        "\r\n--b--\r\n";
    const std::string type = "multipart/related; type=\"text/xml\"; start=\"<root>\"; boundary=b";
    ScriptedPeer peer({{reply(body, "200 OK", type)}, {reply("<r/>")}});
    Toolkit toolkit;
    SessionPtr exchange = session(*toolkit.factory, peer.url());
    sendEnvelope(*exchange, "<e/>");
    TavelTKMessageReader& reader = exchange->openResponse();
    PLQInputStream& in = reader.openEnvelope();
    EXPECT_EQ(readAll(in, 1), "<r/>");
    reader.closeEnvelope(in);
    EXPECT_EQ(reader.canHaveAttachments(), 1);
    EXPECT_EQ(reader.hasMoreAttachments(), 1);
    TavelTKAttachmentReader& first = reader.openNextAttachment();
    EXPECT_STREQ(first.getContentID(), "<one>");
    EXPECT_STREQ(first.getContentType(), "text/csv");
    EXPECT_STREQ(first.getHeader("content-encoding"), "gzip");
    EXPECT_EQ(first.getHeader("absent"), nullptr);
    EXPECT_EQ(first.isGzipped(), 1);
    EXPECT_EQ(first.getContentLength(), 7);
    char some[3];
    EXPECT_EQ(first.getInputStream().read(some, 3), 3u); // and the rest is left
    reader.closeAttachment(first);
    ASSERT_EQ(reader.hasMoreAttachments(), 1);
    TavelTKAttachmentReader& second = reader.openNextAttachment();
    EXPECT_EQ(second.isGzipped(), 0);
    EXPECT_EQ(second.getContentLength(), -1);
    EXPECT_EQ(readAll(second.getInputStream()), "second");
    reader.closeAttachment(second);
    EXPECT_EQ(reader.hasMoreAttachments(), 0);
    exchange->closeResponse(reader);
    exchange.reset();
    call(*toolkit.factory, peer.url());
    EXPECT_EQ(peer.connections(), 1) << "the connection is kept after attachments";
}

TEST(Reply, MultipartThatCannotBeTakenIsRefused) {
    const std::vector<Bad> table{{"", "--b\r\nContent-Type: text/xml\r\nContent-ID: <x>\r\n\r\n<r/>\r\n--b--",
                                  badMultipart, "no part has the content id 'root'"},
                                 {"", "--b\r\nContent-Type: image/png\r\nContent-ID: <root>\r\n\r\n\r\n--b--",
                                  notSoapReply, "image/png"},
                                 {"", "--b\r\nContent-Type: text/xml\r\nContent-ID: <root>\r\n\r\n<r/>",
                                  badMultipart, "within part 1"},
                                 {"", "no part at all", badMultipart, "ended"}};
    for (const Bad& row : table) {
        ScriptedPeer peer({{reply(row.bytes, "200 OK", "multipart/related; start=\"<root>\"; boundary=b")}});
        Toolkit toolkit;
        expectFailure([&] { call(*toolkit.factory, peer.url()); }, row.error, row.words);
    }
}

} // namespace
