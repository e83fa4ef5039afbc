// Searching the catalogue's rows, and comparing figures.

#include "count/Figures.h"
#include "data/CatalogueData.h"
#include "lookup/Catalogue.h"
#include "lookup/Nearest.h"
#include "support/Table.h"

#include <gmock/gmock.h>

#include <sstream>

namespace {

using namespace mrl::tool;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(Nearest, CountsTheLettersThatDiffer) {
    for (const auto& row : mrl::test::plainTable("distances.txt")) {
        const auto distance = static_cast<std::size_t>(std::stoi(row[2]));
        EXPECT_EQ(editDistance(row[0], row[1]), distance) << row[0] << ' ' << row[1];
        EXPECT_EQ(editDistance(row[1], row[0]), distance) << row[1] << ' ' << row[0];
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

TEST(Figures, ArePrintedInTheExpectedOrderAndEachDifferenceIsOneSentence) {
    Figures figures;
    figures.add("types", 1);
    figures.add("types", 2);
    figures.set("first", "a");
    const struct {
        std::vector<FigureRow> expected;
        const char* lines;
        const char* complaints;
    } rows[] = {
        {{{"first", "a"}, {"types", "3"}}, "first: a\ntypes: 3\n", ""},
        {{{"types", "4"}, {"first", "a"}, {"other", "2"}},
         "types: 3\nfirst: a\nother: not counted\n",
         "types should be 4 and is 3\nother should be 2 and is not counted\n"},
    };
    for (const auto& row : rows) {
        std::ostringstream lines;
        std::ostringstream complaints;
        EXPECT_EQ(figures.compare(row.expected, lines, complaints) == 0, *row.complaints == '\0');
        EXPECT_EQ(lines.str(), row.lines);
        EXPECT_EQ(complaints.str(), row.complaints);
    }
}

} // namespace
