// What stands on the wire when a request is sent.

#include "Exchange.h"

#include <filesystem>
#include <fstream>

namespace {

const std::string s_config = "<sessionConfigDocument><serviceID>RENQ</serviceID></sessionConfigDocument>";
const std::string s_configHeader =
    "X-MRL-Session-Config: "
    "PHNlc3Npb25Db25maWdEb2N1bWVudD48c2VydmljZUlEPlJFTlE8L3NlcnZpY2VJRD48L3Nlc3Npb25Db25m"
    "aWdEb2N1bWVudD4=\r\nX-MRL-Service-Id: RENQ\r\n";

std::string head(const ScriptedPeer& peer, const std::string& contentType, const std::string& config = "") {
    return "POST /bus?a=b%20c HTTP/1.1\r\nHost: " + peer.authority() +
           "\r\nUser-Agent: mrl\r\nAccept: text/xml, multipart/related\r\nSOAPAction: \"urn:action\"\r\n"
           "Content-Type: " +
           contentType + "\r\n" + config + "X-MRL-Request-Id: token\r\n";
}

const std::string s_xml = "text/xml; charset=utf-8";
const std::string s_related =
    "multipart/related; type=\"text/xml\"; start=\"<envelope@mrl>\"; boundary=\"mrl-token\"";
const std::string s_rootPart = "--mrl-token\r\nContent-Type: text/xml; charset=utf-8\r\n"
                               "Content-Transfer-Encoding: binary\r\nContent-ID: <envelope@mrl>\r\n\r\n";

std::string chunk(const std::string& bytes) {
    char size[24];
    std::snprintf(size, sizeof size, "%zx\r\n", bytes.size());
    return size + bytes + "\r\n";
}

void attach(TavelTKMessageWriter& writer, const char* type, const char* encoding, const char* headers,
            const char* id, const std::string& bytes) {
    PLQOutputStream& out = writer.openAttachment(type, encoding, headers, id, 1);
    out.write(bytes.data(), bytes.size());
    writer.closeAttachment(out);
}

TEST(Request, WithContentLengthIsOneMessageWithItsSessionConfiguration) {
    ScriptedPeer peer({{reply("<r/>")}});
    Toolkit toolkit;
    const SessionPtr exchange = session(*toolkit.factory, peer.url("/bus?a=b%20c"), 1000, s_config);
    exchange->setProperty("send-content-length", 1);
    sendEnvelope(*exchange, "<e>\xC3\xA9</e>");
    EXPECT_EQ(peer.request(0),
              head(peer, s_xml, s_configHeader) + "Content-Length: 9\r\n\r\n<e>\xC3\xA9</e>");
    EXPECT_EQ(receiveEnvelope(*exchange), "<r/>");
}

TEST(Request, InChunksHasChunksOfTheGivenSizeHoweverItIsWritten) {
    const std::string envelope = "<e>0123456789</e>";
    for (const std::size_t piece : {1, 3, 8, 17}) {
        ScriptedPeer peer({{reply("<r/>")}});
        Toolkit toolkit;
        const SessionPtr exchange = session(*toolkit.factory, peer.url("/bus?a=b%20c"));
        exchange->setProperty("send-content-length", 0);
        exchange->setProperty("chunk-size", 8);
        TavelTKMessageWriter& writer = exchange->openRequest(0);
        PLQOutputStream& out = writer.openEnvelope("urn:action");
        for (std::size_t at = 0; at < envelope.size(); at += piece)
            out.write(envelope.data() + at, std::min(piece, envelope.size() - at));
        writer.closeEnvelope(out);
        exchange->closeRequest(writer);
        EXPECT_EQ(peer.request(0), head(peer, s_xml) +
                                       "Transfer-Encoding: chunked\r\n\r\n"
                                       "8\r\n<e>01234\r\n8\r\n56789</e\r\n1\r\n>\r\n0\r\n\r\n");
    }
}

TEST(Request, WithAttachmentsIsMultipartInBothFramingsAnnouncedOrNot) {
    const std::string body =
        s_rootPart + "<e/>" +
        "\r\n--mrl-token\r\nContent-Type: text/csv; header=\"present\"; charset=UTF-8\r\n"
        "Content-Encoding:gzip\r\nContent-Transfer-Encoding: binary\r\nContent-ID: <one>\r\n\r\n"
        "\x1f\x8b" +
        "\r\n--mrl-token\r\nContent-Type: application/octet-stream\r\n"
        "Content-Transfer-Encoding: base64\r\nContent-ID: <two>\r\n\r\n" +
        "\r\n--mrl-token--\r\n";
    for (const int announced : {0, 1})
        for (const int withLength : {0, 1}) {
            ScriptedPeer peer({{reply("<r/>")}});
            Toolkit toolkit;
            const SessionPtr exchange = session(*toolkit.factory, peer.url("/bus?a=b%20c"));
            exchange->setProperty("send-content-length", withLength);
            TavelTKMessageWriter& writer = exchange->openRequest(announced);
            PLQOutputStream& out = writer.openEnvelope("urn:action");
            out.write("<e/>", 4);
            writer.closeEnvelope(out);
            attach(writer, "text/csv; header=\"present\"", "UTF-8", "Content-Encoding:gzip", "one",
                   "\x1f\x8b");
            attach(writer, nullptr, "base64", "", "<two>", "");
            exchange->closeRequest(writer);
            EXPECT_EQ(peer.request(0),
                      head(peer, s_related) +
                          (withLength ? "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body
                                      : "Transfer-Encoding: chunked\r\n\r\n" + chunk(body) + "0\r\n\r\n"));
        }
}

TEST(Request, WithAnnouncedAttachmentsLeavesWhileItIsWritten) {
    ScriptedPeer peer({{reply("<r/>")}});
    Toolkit toolkit;
    const SessionPtr exchange = session(*toolkit.factory, peer.url());
    exchange->setProperty("send-content-length", 0);
    exchange->setProperty("chunk-size", 64);
    TavelTKMessageWriter& writer = exchange->openRequest(1);
    writer.openEnvelope("urn:action");
    for (int wait = 0; peer.connections() == 0 && wait < 1000; ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(peer.connections(), 1) << "the envelope is not closed yet";
}

/// Gives writer and session back in a handler, as hosts do after a failure of their own.
void breakOff(const ScriptedPeer& peer, int withLength, bool inAttachment) {
    Toolkit toolkit;
    const SessionPtr exchange = session(*toolkit.factory, peer.url());
    exchange->setProperty("send-content-length", withLength);
    exchange->setProperty("chunk-size", 16);
    TavelTKMessageWriter& writer = exchange->openRequest(1);
    PLQOutputStream& out = writer.openEnvelope("urn:action");
    try {
        out.write("<e/>", 4);
        if (inAttachment) {
            writer.closeEnvelope(out);
            writer.openAttachment("a/b", nullptr, nullptr, "id", 1).write("half", 4);
        }
        throw std::runtime_error("the host fails");
    } catch (const std::runtime_error&) {
        if (inAttachment)
            writer.closeAttachment(out);
        else
            writer.closeEnvelope(out);
        exchange->closeRequest(writer);
    }
    EXPECT_THROW(exchange->openResponse(), HBLAssertError);
}

TEST(Request, ThatItsWriterGaveUpNeverPassesForAWholeOne) {
    for (const int withLength : {0, 1})
        for (const bool inAttachment : {false, true}) {
            ScriptedPeer peer({{reply("<r/>")}});
            breakOff(peer, withLength, inAttachment);
            if (withLength)
                EXPECT_EQ(peer.connections(), 0);
            else
                EXPECT_FALSE(peer.incomplete().ends_with("0\r\n\r\n"));
        }
}

TEST(Request, EchoFileHoldsBothDirectionsAndIsPrivate) {
    const auto file = std::filesystem::temp_directory_path() / ("mrl_echo_" + std::to_string(::getpid()));
    const auto echoed = [&] {
        std::ifstream in(file, std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(in), {}};
    };
    ScriptedPeer peer({{reply("<r/>")}, {reply("<r/>")}, {reply("<r/>")}});
    Toolkit toolkit;
    std::size_t call = 0;
    for (const int flushEach : {1, 0, 1}) { // the first makes the file, the others replace a longer one
        {
            const SessionPtr exchange = session(*toolkit.factory, peer.url());
            exchange->echo(file.c_str(), "wb", flushEach);
            sendEnvelope(*exchange, "<e/>");
            if (flushEach) {
                EXPECT_TRUE(echoed().ends_with("<e/>")) << "nothing of an older reply stands behind it";
            }
            receiveEnvelope(*exchange);
        }
        EXPECT_EQ(echoed(), peer.request(call++) + reply("<r/>"));
        EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0600));
        std::ofstream(file, std::ios::app) << std::string(100000, 'x');
    }
    session(*toolkit.factory, peer.url())->echo(file.c_str(), "wb", 1);
    EXPECT_EQ(std::filesystem::file_size(file), 0u);
    std::filesystem::remove(file);

    const SessionPtr exchange = session(*toolkit.factory, peer.url());
    expectFailure([&] { exchange->echo("/no/such/directory/file", "wb", 1); }, TavelTKError::echoFailed,
                  "'/no/such/directory/file' cannot be opened (No such file or directory)");
}

TEST(Request, ToAnUnusableUrlIsRefusedByName) {
    Toolkit toolkit;
    for (const auto& row : mrl::test::table("bad_urls.txt"))
        expectFailure([&] { session(*toolkit.factory, row[0]); }, TavelTKError::badUrl, row[1]);
    EXPECT_EQ(mrl::detail::Endpoint::parse("HTTP://[::1]:93/").authority(), "[::1]:93");
    EXPECT_EQ(mrl::detail::Endpoint::of("host", 9300, "x?y").path, "/x?y");
    expectFailure([&] { session(*toolkit.factory, "http://host/", 0); }, TavelTKError::badArgument, "0 s");
}

TEST(Request, ValuesThatCouldForgeHeadersAreRefused) {
    Toolkit toolkit;
    const SessionPtr exchange = session(*toolkit.factory, "http://127.0.0.1:1/");
    TavelTKMessageWriter& writer = exchange->openRequest(1);
    expectFailure([&] { writer.openEnvelope("a\"\r\nEvil: x"); }, TavelTKError::badArgument, "SOAP action");
    writer.closeEnvelope(writer.openEnvelope("urn:action"));
    const auto open = [&](const char* type, const char* headers, const char* id) {
        return [&writer, type, headers, id] { writer.openAttachment(type, "", headers, id, 1); };
    };
    expectFailure(open("a/b\r\nx: y", "", "i"), TavelTKError::badArgument, "content type");
    expectFailure(open("a/b", "no header", "i"), TavelTKError::badArgument, "'no header'");
    expectFailure(open("a/b", "", "i\n"), TavelTKError::badArgument, "content id");
}

TEST(Properties, AreCheckedByNameAndRange) {
    Toolkit toolkit;
    TavelTK& factory = *toolkit.factory;
    expectFailure([&] { factory.setProperty("chunksize", 1); }, TavelTKError::badArgument, "chunk-size");
    expectFailure([&] { factory.setProperty("chunk-size", 0); }, TavelTKError::badArgument, "1 to 16777216");
    expectFailure([&] { factory.setProperty("chunk-size", "many"); }, TavelTKError::badArgument, "'many'");
    factory.setProperty("max-reply-bytes", "8589934592");
}

TEST(Errors, EachHasItsOwnIdThatSpellsItsNumber) {
    for (const TavelTKErrorInfo& info : tavelTKErrors()) {
        const TavelTKException exception(static_cast<int>(info.error));
        EXPECT_EQ(exception.getErrorCodeString(), info.id);
        EXPECT_STREQ(exception.getMessage(), info.text);
    }
    EXPECT_EQ(TavelTKException(6).getErrorCodeString(), "HBL-BIT-0006");
    EXPECT_EQ(findTavelTKError(9), nullptr);
}

} // namespace
