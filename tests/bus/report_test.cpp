// Reports: their forms, and the conversations that make them.

#include "report/Conversations.h"
#include "store/StoreError.h"
#include "support/Files.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

namespace mrl::bus {
namespace {

using mrl::test::golden;
using std::chrono::milliseconds;
using std::chrono::seconds;

const Table table{"A <B>", "R & D", {"Name", "Note"}, {{"Ålesund, \"coast\"", "=1+1"}, {"", "(x\\)"}}};

std::string without(std::string text, char c) {
    std::erase(text, c);
    return text;
}

TEST(Reports, AreRenderedAsPagesAndTables) {
    EXPECT_EQ(renderHtml(table), golden("report.html"));
    EXPECT_EQ(without(renderCsv(table), '\r'), golden("report.csv"));
    EXPECT_EQ(std::ranges::count(renderCsv(table), '\r'), 3) << "each line ends in CR LF";
}

TEST(Reports, AreRenderedAsDocumentsWhoseObjectsStandWhereTheTableSays) {
    Table large = table;
    large.rows.resize(120, {"x", "y"});
    for (const auto& [content, pages] : {std::pair(table, 1), std::pair(large, 3)}) {
        const std::string pdf = renderPdf(content);
        const std::size_t places = std::stoul(pdf.substr(pdf.rfind("startxref") + 10));
        ASSERT_TRUE(pdf.substr(places).starts_with("xref\n0 ")) << places;
        std::istringstream rows(pdf.substr(pdf.find("\n0000000000 ", places) + 21));
        std::string offset;
        int objects = 0;
        for (std::string rest; rows >> offset && offset != "trailer"; std::getline(rows, rest))
            EXPECT_TRUE(pdf.substr(std::stoul(offset)).starts_with(std::to_string(++objects) + " 0 obj"));
        EXPECT_EQ(objects, 4 + 2 * pages);
        EXPECT_NE(pdf.find("/Count " + std::to_string(pages)), std::string::npos);
    }
    std::string expected = golden("report.pdf.txt"); // in ASCII: the one other letter is written \305
    expected.replace(expected.find("\\305"), 4, "\xc5");
    EXPECT_NE(renderPdf(table).find("stream\n" + expected + "endstream"), std::string::npos);
}

class ReportConversations : public testing::Test {
protected:
    static ReportJob job() { return {"/r", {findOutputFormat("CSV")}}; }

    std::chrono::steady_clock::time_point m_now{};
    Conversations m_quick{{.keepTime = seconds(10), .most = 2, .now = [this] { return m_now; }}};
    Conversations m_slow{{.workTime = seconds(60)}};
};

TEST_F(ReportConversations, AreCompleteWhenTheReportIs) {
    const std::string id = m_quick.start("a", job(), [] { return table; });
    const auto view = m_quick.wait("a", id, seconds(10));
    ASSERT_TRUE(view.complete);
    EXPECT_EQ(view.outputs.front().bytes, renderCsv(table));
    EXPECT_THROW(m_quick.wait("b", id, seconds(0)), StoreError) << "it is somebody else's";
    m_quick.end("a", id);
    EXPECT_THROW(m_quick.wait("a", id, seconds(0)), StoreError);
}

TEST_F(ReportConversations, AreCancelledAtWorkWithoutWaitingForTheEnd) {
    const std::string id = m_slow.start("", job(), [] { return table; });
    EXPECT_FALSE(m_slow.wait("", id, milliseconds(10)).complete);
    std::thread waiting([&] { EXPECT_THROW(m_slow.wait("", id, seconds(50)), StoreError); });
    m_slow.end("", id);
    waiting.join();
    m_slow.start("", job(), [] { return table; }); // ended with the bus
}

TEST_F(ReportConversations, TellWhatTheReportEndedIn) {
    const std::string id =
        m_quick.start("", job(), []() -> Table { throw StoreError(StoreErrorCode::notFound, "gone"); });
    EXPECT_THROW(m_quick.wait("", id, seconds(10)), StoreError);
    m_quick.end("", id);
}

TEST_F(ReportConversations, AreLimitedAndForgotten) {
    const std::string id = m_quick.start("", job(), [] { return table; });
    m_quick.wait("", m_quick.start("", job(), [] { return table; }), seconds(10));
    m_quick.wait("", id, seconds(10));
    EXPECT_THROW(m_quick.start("", job(), [] { return table; }), StoreError);
    m_now += seconds(11);
    m_quick.start("", job(), [] { return table; });
    EXPECT_THROW(m_quick.wait("", id, seconds(0)), StoreError);
}

} // namespace
} // namespace mrl::bus
