#include "BusFixture.h"
#include "support/Files.h"
#include "support/Table.h"
#include "support/Threads.h"

#include <Poco/Net/StreamSocket.h>
#include <gmock/gmock.h>

#include <atomic>
#include <chrono>

namespace mrl::bus {
namespace {

using mrl::test::golden;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* revenue = "/content/folder[@name='Sales']/report[@name='Revenue']";

TEST_F(BusFixture, AnswersAQueryByteForByte) {
    const auto reply = post(query(revenue, "objectClass defaultName disabled"));
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.contentType, "text/xml; charset=utf-8");
    EXPECT_EQ(reply.body, golden("query_reply.xml"));
}

TEST_F(BusFixture, RefusesWithATypedFaultByteForByte) {
    const auto reply =
        post(query("/content/folder[@name='Sales']/report[@name='Salary comparison']", "defaultName"));
    EXPECT_EQ(reply.status, 500);
    EXPECT_EQ(reply.contentType, "text/xml; charset=utf-8");
    EXPECT_EQ(reply.body, golden("fault_reply.xml"));
}

TEST_F(BusFixture, SortsPagesAndTellsOfReferences) {
    const std::string sort =
        list("sortBy", "sort",
             "<item xsi:type=\"bus:sort\">" + element("order", "bus:orderEnum", "descending") +
                 element("propName", "bus:propEnum", "defaultName") + "</item>");
    const std::string options =
        element("options", "bus:queryOptions",
                element("maxObjects", "xs:int", "1") + element("skipObjects", "xs:int", "1"));
    const auto reply = post(query("/content/*", "defaultName parent", sort + options));
    EXPECT_THAT(reply.body,
                AllOf(HasSubstr("bus:baseClass[1]"), HasSubstr(">Retail<"), Not(HasSubstr(">Sales<"))));
    EXPECT_THAT(reply.body, HasSubstr("<item xsi:type=\"bus:content\">"));
    EXPECT_THAT(reply.body, HasSubstr(">/content</bus:value>"));
}

TEST_F(BusFixture, AddsUpdatesAndDeletes) {
    const auto prop = [](const char* name, const char* type, const std::string& value,
                         const char* valueType = "xs:string") {
        return element(name, std::string("bus:") + type, element("value", valueType, value));
    };
    const auto objects = [](const std::string& type, const std::string& members) {
        return list("objects", "baseClass", "<item xsi:type=\"bus:" + type + "\">" + members + "</item>");
    };
    const auto parent = element("parentPath", "bus:searchPathSingleObject", "/content");
    const auto name = prop("defaultName", "tokenProp", "Tom &amp; Mei's");
    const std::string path = "/content/folder[@name=\"Tom &amp; Mei's\"]";

    auto reply = post(envelope(
        "add", parent + objects("folder", name + prop("hidden", "booleanProp", "true", "xs:boolean"))));
    EXPECT_EQ(reply.status, 200) << reply.body;
    EXPECT_THAT(reply.body, HasSubstr("/content/folder[@name=&quot;Tom &amp; Mei&apos;s&quot;]"));
    EXPECT_THAT(post(envelope("add", parent + objects("folder", name))).body, HasSubstr(">cmNameInUse<"));

    reply = post(envelope("update", objects("folder", prop("defaultDescription", "stringProp", "ours") +
                                                          prop("searchPath", "stringProp", path))));
    EXPECT_EQ(reply.status, 200) << reply.body;
    reply = post(query(path, "defaultDescription hidden"));
    EXPECT_THAT(reply.body, AllOf(HasSubstr(">ours<"), HasSubstr(">true<")));

    reply = post(envelope("delete", objects("folder", prop("searchPath", "stringProp", path))));
    EXPECT_THAT(reply.body, HasSubstr("<bus:result xsi:type=\"xs:int\">1</bus:result>"));
    EXPECT_THAT(post(query(path, "defaultName")).body, HasSubstr("bus:baseClass[0]"));
}

TEST_F(BusFixture, AnswersABadRequestWithItsCodeAndTheConnectionGoesOn) {
    Poco::Net::HTTPClientSession session("127.0.0.1", port());
    session.setKeepAlive(true);
    for (const auto& row : mrl::test::table("bad_requests.txt")) {
        const std::string body = row[2] == "bytes"  ? row[3]
                                 : row[2] == "call" ? envelope(row[3], row[4])
                                                    : query(row[3], row[4]);
        const auto reply = send(session, "POST", "/", "text/xml", body);
        EXPECT_EQ(reply.status, 500) << row[0];
        EXPECT_THAT(reply.body, HasSubstr(">" + row[1] + "<")) << row[0] << "\n" << reply.body;
        const auto next = send(session, "POST", "/", "text/xml", query(revenue, "defaultName"), true);
        EXPECT_EQ(next.status, 200) << "after " << row[0] << "\n" << next.body;
    }
}

TEST_F(BusFixture, AnswersWhatIsNoCallWithAStatus) {
    struct Case {
        const char* method;
        const char* path;
        const char* contentType;
        int status;
        const char* allow;
    };
    Poco::Net::HTTPClientSession session("127.0.0.1", port());
    session.setKeepAlive(true);
    for (const auto& c :
         {Case{"GET", "/", "", 200, ""}, Case{"GET", "/wsdl", "", 405, "POST"},
          Case{"DELETE", "/", "", 405, "GET, POST"}, Case{"PUT", "/", "text/xml", 405, "GET, POST"},
          Case{"POST", "/", "application/json", 415, ""}, Case{"POST", "/", "", 415, ""},
          Case{"POST", "/", "multipart/form-data; boundary=x", 415, ""}}) {
        const auto reply =
            send(session, c.method, c.path, c.contentType, c.method == std::string("GET") ? "" : "{}");
        EXPECT_EQ(reply.status, c.status) << c.method << " " << c.path << " " << c.contentType;
        EXPECT_EQ(reply.allow, c.allow) << c.method << " " << c.path;
        EXPECT_THAT(reply.contentType, StartsWith("text/plain"));
        EXPECT_THAT(reply.body, Not(testing::IsEmpty()));
    }
}

TEST_F(BusFixture, RefusesBodiesBeyondTheLimitWithAndWithoutALength) {
    const std::string large = query(revenue, "name") + std::string(2U << 20U, ' ');
    for (const bool chunked : {false, true}) {
        Poco::Net::HTTPClientSession session("127.0.0.1", port());
        try {
            EXPECT_EQ(send(session, "POST", "/", "text/xml", large, chunked).status, 413);
        } catch (const Poco::Exception&) {
            // the bus may close before the client is through: as good as the status
        }
        EXPECT_EQ(post(query(revenue, "name")).status, 200);
    }
}

TEST_F(BusFixture, AnswersAtOnceWhoDoesNotTellHowMuchComes) {
    for (const std::string method : {"POST", "PUT"}) {
        Poco::Net::StreamSocket socket(Poco::Net::SocketAddress("127.0.0.1", port()));
        socket.setReceiveTimeout(Poco::Timespan(5, 0));
        const std::string request = method + " / HTTP/1.1\r\nContent-Type: text/xml\r\n\r\n";
        socket.sendBytes(request.data(), static_cast<int>(request.size()));
        std::string answer;
        char piece[512];
        while (const int count = socket.receiveBytes(piece, sizeof piece)) // up to the bus's closing
            answer.append(piece, static_cast<std::size_t>(count));
        EXPECT_THAT(answer, StartsWith(method == "POST" ? "HTTP/1.1 411 " : "HTTP/1.1 405 "));
    }
}

TEST_F(BusFixture, OutlivesClientsThatSpeakNoHttp) {
    for (const std::string& bytes :
         {std::string("\x16\x03\x01\x02 hello"), std::string("POST / HTTP/1.1\r\n\r\n"),
          std::string(100000, 'x'),
          std::string("POST / HTTP/1.1\r\nContent-Type: text/xml\r\nContent-Length: 100\r\n\r\n<half"),
          std::string("POST / HTTP/1.1\r\nContent-Type: text/xml\r\nContent-Length: -5\r\n\r\n"),
          std::string(
              "POST / HTTP/1.1\r\nContent-Type: text/xml\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n<")}) {
        Poco::Net::StreamSocket socket(Poco::Net::SocketAddress("127.0.0.1", port()));
        try {
            socket.sendBytes(bytes.data(), static_cast<int>(bytes.size()));
        } catch (const Poco::Exception&) { // closed on us, which is fine
        }
        socket.close();
        EXPECT_EQ(post(query(revenue, "name")).status, 200) << bytes.substr(0, 80);
    }
}

TEST_F(BusFixture, ServesManyClientsAtATime) {
    std::atomic<int> good{0};
    mrl::test::inThreads(8, [&](int) {
        Poco::Net::HTTPClientSession session("127.0.0.1", port());
        session.setKeepAlive(true);
        for (int call = 0; call < 25; ++call)
            good += send(session, "POST", "/", "text/xml", query("/content//report", "defaultName owner"))
                        .status == 200;
    });
    EXPECT_EQ(good.load(), 8 * 25);
}

TEST_F(BusFixture, LeavesAPortThatIsTakenToTheOther) {
    ServerSettings settings;
    settings.port = port();
    EXPECT_THROW(BusServer(m_processor, settings), std::runtime_error);
}

TEST_F(BusFixture, StopsAtOnceWithIdleConnectionsOpen) {
    Poco::Net::HTTPClientSession session("127.0.0.1", port());
    session.setKeepAlive(true);
    send(session, "GET", "/", "", "");
    const auto start = std::chrono::steady_clock::now();
    m_server->stop();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_ANY_THROW(post(query(revenue, "name")));
}

} // namespace
} // namespace mrl::bus
