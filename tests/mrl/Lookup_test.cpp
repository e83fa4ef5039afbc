// Searching the catalogue's rows, and comparing figures.

#include "count/Figures.h"
#include "data/CatalogueData.h"
#include "lookup/Catalogue.h"
#include "lookup/Nearest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace mrl::tool;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(Nearest, CountsTheLettersThatDiffer) {
    const struct {
        const char* a;
        const char* b;
        std::size_t distance;
    } rows[] = {
        {"", "", 0},
        {"", "abc", 3},
        {"report", "report", 0},
        {"report", "Report", 0},
        {"report", "raport", 1},
        {"report", "reprt", 1},
        {"report", "reports", 1},
        {"kitten", "sitting", 3},
        {"contnetQuery", "contentQuery", 2},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(editDistance(row.a, row.b), row.distance) << row.a << ' ' << row.b;
        EXPECT_EQ(editDistance(row.b, row.a), row.distance) << row.b << ' ' << row.a;
    }
}

TEST(Nearest, GivesTheNearestFirstAndNothingFarAway) {
    EXPECT_THAT(nearest("repotr", {"job", "porter", "reports", "report", "reporter"}, 2),
                ElementsAre("report", "reporter"));
    EXPECT_THAT(nearest("zzz", {"job", "report"}), IsEmpty());
}

TEST(Lookup, FindsByTheNameOfTheSchemaAndOfTheClass) {
    EXPECT_EQ(findType("report"), findType("MRLReport"));
    EXPECT_STREQ(findMessage("contentQuery_Request")->className, "MRLContentQuery_Request");
    EXPECT_EQ(findService("MRLContentManagerServicePortType"), findService("contentManagerService"));
    EXPECT_EQ(findType("reprot"), nullptr);
}

TEST(Lookup, FindsEverySignatureOfAnOperationOrThoseOfOneService) {
    EXPECT_THAT(findOperations("VantorLumenaPortType.copy"), SizeIs(2));
    EXPECT_THAT(findOperations("copy"), SizeIs(3));
    EXPECT_THAT(findOperations("agentService.copy"), IsEmpty());
    EXPECT_THAT(findOperations("noService.copy"), IsEmpty());
}

TEST(Figures, EachDifferenceIsOneSentence) {
    Figures figures;
    figures.add("types", 3);
    figures.add("first", "a");
    figures.add("other", 1);
    std::ostringstream complaints;
    const FigureRow same[] = {{"types", "3"}, {"first", "a"}, {"other", "1"}};
    EXPECT_EQ(figures.compare(same, complaints), 0u);
    EXPECT_EQ(complaints.str(), "");
    const FigureRow different[] = {{"types", "4"}, {"first", "a"}, {"missing", "2"}};
    EXPECT_EQ(figures.compare(different, complaints), 3u);
    EXPECT_EQ(complaints.str(), "types is 3 and should be 4\n"
                                "missing is not counted and should be 2\n"
                                "other is 1 and has no expected value\n");
}

} // namespace
