// Attachments of replies: codings, order, limits, size.

#include "Exchange.h"
#include "support/Bytes.h"

#include <fstream>
#include <map>

namespace {

using mrl::test::packed;
using Texts = std::vector<std::string>;

const std::string s_root = "--b\r\nContent-Type: text/xml\r\nContent-ID: <root>\r\n\r\n<r/>\r\n";

/// A cell with each of `names` as the bytes it stands for.
std::string filled(std::string cell, const std::map<std::string, std::string>& names) {
    for (const auto& [name, bytes] : names)
        for (std::size_t at = cell.find(name); at != std::string::npos;
             at = cell.find(name, at + bytes.size()))
            cell.replace(at, name.size(), bytes);
    return cell;
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
    const std::string zipped = packed("text that is packed") + packed("!");
    for (const auto& row : mrl::test::table("attachments.txt")) {
        Texts expected = mrl::test::split(row[2], "|");
        for (std::string& text : expected)
            text = filled(text, {{"ZIPPED", zipped}});
        for (const std::size_t pieces : {1, 7, 65536}) {
            ScriptedPeer peer(
                {{multipart(filled(row[0], {{"ROOT", s_root}, {"ZIPPED", zipped}}))}, {reply("<r/>")}});
            Toolkit toolkit;
            toolkit.factory->setProperty("inflate-attachments", std::stoi(row[1]));
            EXPECT_EQ(receive(*toolkit.factory, peer, pieces), expected) << row[0];
            call(*toolkit.factory, peer.url());
            EXPECT_EQ(peer.connections(), 1);
        }
    }
}

TEST(Attachments, ThatCannotBeTakenAreRefusedByName) {
    const std::map<std::string, std::string> names{{"BOMB", packed(std::string(3000000, '0'))},
                                                   {"CUT", packed("text").substr(0, 12)},
                                                   {"ZEROS", packed(std::string(1001, '0'))}};
    const auto isRefused = [](const std::string& parts, const std::string& error, const std::string& words) {
        ScriptedPeer peer({{multipart(parts), Answer::close}});
        Toolkit toolkit;
        toolkit.factory->setProperty("inflate-attachments", 1);
        toolkit.factory->setProperty("max-early-bytes", 5000);
        if (words == "max-inflated-bytes")
            toolkit.factory->setProperty("max-inflated-bytes", 1000);
        expectFailure([&] { receive(*toolkit.factory, peer, 65536); }, error, words);
        EXPECT_EQ(toolkit.pool.size(), 0u) << words;
    };
    for (const auto& row : mrl::test::table("bad_attachments.txt"))
        isRefused(s_root + filled(row[0], names), row[1], row[2]);
    isRefused("--b\r\nContent-ID: <1>\r\n\r\n" + std::string(5000, 'x') + "\r\n" + s_root, "replyTooLarge",
              "max-early-bytes");
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
