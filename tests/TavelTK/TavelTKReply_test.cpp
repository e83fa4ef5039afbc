// What becomes of replies: the good ones, and each of the bad ones.

#include "Exchange.h"

namespace {

TEST(Reply, OfEveryFramingIsReadAlike) {
    for (const auto& row : mrl::test::table("good_replies.txt")) {
        const Answer answer{row[1], afterwards(row[2])};
        ScriptedPeer peer({answer, answer});
        Toolkit toolkit;
        EXPECT_EQ(call(*toolkit.factory, peer.url()), "<r>reply</r>") << row[0];
        EXPECT_EQ(call(*toolkit.factory, peer.url()), "<r>reply</r>") << row[0] << ", the second time";
    }
}

TEST(Reply, ThatIsBadIsOneClearFailureAndTheNextCallWorks) {
    for (const auto& row : mrl::test::table("bad_replies.txt")) {
        SCOPED_TRACE(row[0]);
        ScriptedPeer peer({{row[1], afterwards(row[4])}, {reply("<r/>")}});
        Toolkit toolkit;
        // A peer that answers has all the time it wants.
        toolkit.factory->setProperty("receive-time-limit", row[2] == "receiveTimedOut" ? 60 : 5000);
        toolkit.factory->setProperty("max-header-bytes", 2048);
        toolkit.factory->setProperty("max-envelope-bytes", 50000);
        expectFailure([&] { call(*toolkit.factory, peer.url()); }, row[2], row[3]);
        EXPECT_EQ(toolkit.pool.size(), 0u) << "a broken connection must not be used again";
        toolkit.factory->setProperty("receive-time-limit", 5000);
        EXPECT_EQ(call(*toolkit.factory, peer.url()), "<r/>");
    }
}

TEST(Reply, CutOffAnywhereIsABrokenConnectionOnceItHasBegun) {
    const std::vector<std::string> replies{
        reply("<r>x</r>"), "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nTransfer-Encoding: chunked\r\n\r\n"
                           "4\r\n<r/>\r\n0\r\n\r\n"};
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

} // namespace
