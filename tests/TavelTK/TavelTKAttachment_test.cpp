// Attachments of replies: codings, order, limits, size.

#include "Exchange.h"
#include "support/Bytes.h"

#include <fstream>

namespace {

using enum TavelTKError;
using mrl::test::packed;
using Texts = std::vector<std::string>;

const std::string s_root = "--b\r\nContent-Type: text/xml\r\nContent-ID: <root>\r\n\r\n<r/>\r\n";

std::string part(const std::string& id, const std::string& headers, const std::string& bytes) {
    return "--b\r\nContent-ID: <" + id + ">\r\n" + headers + "\r\n" + bytes + "\r\n";
}

/// The envelope, then each attachment as its id, a colon and its bytes.
Texts receive(TavelTK& factory, const ScriptedPeer& peer, std::size_t pieces) {
    const SessionPtr exchange = session(factory, peer.url());
    sendEnvelope(*exchange, "<e/>");
    TavelTKMessageReader& reader = exchange->openResponse();
    Texts texts{readAll(reader.openEnvelope(), pieces)};
    while (reader.hasMoreAttachments()) {
        TavelTKAttachmentReader& attachment = reader.openNextAttachment();
        texts.push_back(attachment.getContentID() + (":" + readAll(attachment.getInputStream(), pieces)));
        reader.closeAttachment(attachment);
    }
    exchange->closeResponse(reader);
    return texts;
}

std::string multipart(const std::string& parts) {
    return reply(parts + "--b--\r\n", "200 OK", "multipart/related; start=\"<root>\"; boundary=b");
}

TEST(Attachments, AreFreedOfTheirCodingsWhereverTheEnvelopeStands) {
    const std::string base64 = "Content-Transfer-Encoding: Base64\r\n";
    const std::string quoted = "Content-Transfer-Encoding: quoted-printable\r\n";
    const std::string gzip = "Content-Encoding: gzip\r\n";
    const std::string text = "text that is packed";
    const std::string zipped = packed(text) + packed("!");
    struct Row {
        std::string parts;
        Texts expected;
        int inflates = 0;
    };
    const std::vector<Row> table{
        {s_root + part("1", base64, "SGVs\r\nbG8h IQ=\t=\r\n") + part("2", base64, ""),
         {"<r/>", "<1>:Hello!!", "<2>:"}},
        {s_root + part("1", quoted, "a=3D=\r\nb \t\r\nc=C3=a9= \r\n=20"), {"<r/>", "<1>:a=b\r\nc\xC3\xA9 "}},
        {s_root + part("1", gzip, zipped), {"<r/>", "<1>:" + zipped}},
        {s_root + part("1", gzip, zipped) + part("2", gzip, ""), {"<r/>", "<1>:" + text + "!", "<2>:"}, 1},
        {part("1", base64, "YQ==") + part("2", "", "b") + s_root + part("3", "", "c"),
         {"<r/>", "<1>:a", "<2>:b", "<3>:c"}},
        {"--b\r\nContent-Type: text/xml\r\nContent-ID: root\r\n" + quoted + "\r\n<r=2F>\r\n", {"<r/>"}}};
    for (const Row& row : table)
        for (const std::size_t pieces : {1, 7, 65536}) {
            ScriptedPeer peer({{multipart(row.parts)}, {reply("<r/>")}});
            Toolkit toolkit;
            toolkit.factory->setProperty("inflate-attachments", row.inflates);
            EXPECT_EQ(receive(*toolkit.factory, peer, pieces), row.expected) << row.parts;
            call(*toolkit.factory, peer.url());
            EXPECT_EQ(peer.connections(), 1);
        }
}

TEST(Attachments, ThatCannotBeTakenAreRefusedByName) {
    const std::string base64 = "Content-Transfer-Encoding: base64\r\n";
    const std::string quoted = "Content-Transfer-Encoding: quoted-printable\r\n";
    const std::string gzip = "Content-Encoding: gzip\r\n";
    const std::string zipped = packed(std::string(3000000, '0'));
    struct Row {
        std::string parts;
        TavelTKError error;
        std::string words;
    };
    std::vector<Row> table{
        {s_root + part("1", base64, "YQ=a"), badAttachment, "part '<1>': its Base64 contains"},
        {s_root + part("1", base64, "YWE"), badAttachment, "group of four"},
        {s_root + part("1", base64, "YQ==YQ=="), badAttachment, "out of place"},
        {s_root + part("1", quoted, "=4"), badAttachment, "ends within an escape"},
        {s_root + part("1", quoted, "=4z"), badAttachment, "escape that is none"},
        {s_root + part("1", "Content-Transfer-Encoding: x-uuencode\r\n", ""), unsupported, "x-uuencode"},
        {s_root + part("1", gzip, "no gzip at all"), badAttachment, "damaged"},
        {s_root + part("1", gzip, packed("text").substr(0, 12)), badAttachment, "too early"},
        {s_root + part("1", gzip, zipped), replyTooLarge, "max-inflate-ratio"},
        {s_root + part("1", gzip, packed(std::string(1001, '0'))), replyTooLarge, "max-inflated-bytes"},
        {s_root + part("1", "", "a") + part("1", "", "b"), badMultipart, "two parts have the content id '1'"},
        {s_root + part("root", "", "a"), badMultipart, "'root'"},
        {part("1", "", std::string(5000, 'x')) + s_root, replyTooLarge, "max-early-bytes"}};
    std::string many = s_root;
    for (int i = 0; i <= 10000; ++i)
        many += "--b\r\n\r\n\r\n";
    table.push_back({many, replyTooLarge, "max-parts"});
    for (const Row& row : table) {
        ScriptedPeer peer({{multipart(row.parts), Answer::close}});
        Toolkit toolkit;
        toolkit.factory->setProperty("inflate-attachments", 1);
        toolkit.factory->setProperty("max-early-bytes", 5000);
        if (row.words == "max-inflated-bytes")
            toolkit.factory->setProperty("max-inflated-bytes", 1000);
        expectFailure([&] { receive(*toolkit.factory, peer, 65536); }, row.error, row.words);
        EXPECT_EQ(toolkit.pool.size(), 0u);
    }
}

std::size_t residentPages() {
    std::size_t all = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident;
}

TEST(Attachments, OfAnySizePassInConstantMemoryBothWays) {
    // "make torture" moves more than 4 GiB up and down.
    const std::size_t size = (std::size_t(std::getenv("MRL_TORTURE") ? 4096 : 64) << 20) + 1000001;
    const std::string piece(1 << 20, 'x');
    Poco::Net::ServerSocket listener = ScriptedPeer::loopbackListener();
    std::size_t sent = 0;
    std::thread peer([&] {
        Poco::Net::StreamSocket socket = listener.acceptConnection();
        std::string buffer(1 << 20, '\0');
        std::string tail;
        while (!tail.ends_with("--\r\n\r\n0\r\n\r\n")) {
            const int count = socket.receiveBytes(buffer.data(), static_cast<int>(buffer.size()));
            sent += static_cast<std::size_t>(count);
            tail = (tail + buffer.substr(0, static_cast<std::size_t>(count)));
            tail.erase(0, tail.size() - std::min<std::size_t>(tail.size(), 16));
        }
        const std::string start = s_root + "--b\r\nContent-ID: <1>\r\n\r\n";
        const std::string head =
            "HTTP/1.1 200 OK\r\nContent-Type: multipart/related; boundary=b\r\nContent-Length: " +
            std::to_string(start.size() + size + 9) + "\r\n\r\n" + start;
        socket.sendBytes(head.data(), static_cast<int>(head.size()));
        for (std::size_t left = size; left != 0;)
            left -= static_cast<std::size_t>(
                socket.sendBytes(piece.data(), static_cast<int>(std::min(left, piece.size()))));
        socket.sendBytes("\r\n--b--\r\n", 9);
    });
    Toolkit toolkit;
    toolkit.factory->setProperty("send-content-length", 0);
    const SessionPtr exchange = session(*toolkit.factory, "http://" + listener.address().toString() + "/");
    const std::size_t before = residentPages();
    TavelTKMessageWriter& writer = exchange->openRequest(1);
    writer.closeEnvelope(writer.openEnvelope("urn:action"));
    PLQOutputStream& out = writer.openAttachment("a/b", nullptr, nullptr, "1", 1);
    for (std::size_t left = size; left != 0; left -= std::min(left, piece.size()))
        out.write(piece.data(), std::min(left, piece.size()));
    writer.closeAttachment(out);
    exchange->closeRequest(writer);
    TavelTKMessageReader& reader = exchange->openResponse();
    readAll(reader.openEnvelope());
    ASSERT_EQ(reader.hasMoreAttachments(), 1);
    PLQInputStream& in = reader.openNextAttachment().getInputStream();
    std::string buffer(1 << 16, '\0');
    std::size_t received = 0;
    for (std::size_t count = 0; !PLQInputStream::isEnd(count = in.read(buffer.data(), buffer.size()));)
        received += count;
    peer.join();
    EXPECT_EQ(received, size);
    EXPECT_GT(sent, size);
#ifdef __SANITIZE_ADDRESS__ // which keeps what was given back
    static_cast<void>(before);
#else
    EXPECT_LT(residentPages(), before + 2048) << "8 MiB for buffers of both ends";
#endif
}

} // namespace
