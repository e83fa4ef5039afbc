#include "store/SearchPath.h"
#include "store/Selection.h"
#include "store/StoreError.h"
#include "support/Table.h"

#include <gmock/gmock.h>

#include <string>

namespace mrl::bus {
namespace {

using testing::HasSubstr;

/// A path put back together in one spelling, to compare what was read.
std::string spell(const SearchPath& path) {
    std::string text;
    for (const auto& branch : path.branches) {
        text += text.empty() ? "" : " | ";
        if (branch.empty())
            text += "/";
        for (const auto& step : branch) {
            text += step.axis == SearchPath::Axis::child ? "/" : "//";
            text += step.objectClass.empty() ? "*" : step.objectClass;
            for (const auto& predicate : step.predicates)
                text += "{" + predicate.property + "=" + predicate.value + "}";
        }
    }
    return text;
}

TEST(SearchPath, IsReadAsWritten) {
    for (const auto& row : mrl::test::plainTable("search_paths.txt"))
        EXPECT_EQ(spell(SearchPath::parse(row[0])), row[1]) << row[0];
}

TEST(SearchPath, IsRefusedWithItsPlaceAndTheRemedy) {
    for (const auto& row : mrl::test::plainTable("refused_search_paths.txt"))
        try {
            SearchPath::parse(row[0]);
            ADD_FAILURE() << row[0] << " was accepted";
        } catch (const StoreError& e) {
            EXPECT_EQ(e.code(), StoreErrorCode::badSearchPath);
            EXPECT_THAT(e.what(), HasSubstr("position " + row[1] + ":"));
            EXPECT_THAT(e.what(), HasSubstr(row[2]));
        }
}

TEST(SearchPath, KeepsItsLimits) {
    const auto repeated = [](const std::string& part, std::size_t times) {
        std::string text;
        while (times-- > 0)
            text += part;
        return text;
    };
    for (const auto& text :
         {"/" + repeated("a", SearchPath::maxLength), repeated("/a", SearchPath::maxSteps + 1),
          repeated("/a|", SearchPath::maxBranches) + "/a",
          "/a" + repeated("[@a='']", SearchPath::maxPredicates + 1)})
        try {
            SearchPath::parse(text);
            ADD_FAILURE() << text.substr(0, 60) << " was accepted";
        } catch (const StoreError& e) {
            EXPECT_EQ(e.code(), StoreErrorCode::tooMuch);
        }
}

TEST(SearchPath, CanonicalStepsReadBackAsTheNameWhateverItsQuotes) {
    for (const std::string name :
         {"plain", "O'Hara", "the \"best\"", "O'Hara's \"best\"", "''", "a']/b[@name='c"}) {
        const auto path = SearchPath::parse("/" + SearchPath::step("report", name));
        ASSERT_EQ(path.branches.front().size(), 1U) << name;
        EXPECT_EQ(path.branches.front().front().predicates.front().value, name);
    }
}

TEST(FixedPart, EndsBeforeTheFirstStepThatSelectsByARule) {
    const auto steps = [](const char* text) {
        return FixedPart::of(SearchPath::parse(text).branches.front()).steps;
    };
    EXPECT_EQ(steps("/"), 0U);
    EXPECT_EQ(steps("/content/folder[@name='a']"), 2U);
    EXPECT_EQ(steps("/content/folder[@name='a']/*"), 2U);
    EXPECT_EQ(steps("/content/folder"), 1U);
    EXPECT_EQ(steps("/content/folder[@owner='a']/report[@name='b']"), 1U);
    EXPECT_EQ(steps("/content//report[@name='b']"), 1U);
}

} // namespace
} // namespace mrl::bus
