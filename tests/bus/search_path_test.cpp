#include "store/SearchPath.h"
#include "store/Selection.h"
#include "store/StoreError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

struct Accepted {
    const char* text;
    const char* meaning;
};

class AcceptedPath : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedPath, IsReadAsWritten) {
    EXPECT_EQ(spell(SearchPath::parse(GetParam().text)), GetParam().meaning);
}

INSTANTIATE_TEST_SUITE_P(
    SearchPath, AcceptedPath,
    testing::Values(Accepted{"/", "/"}, Accepted{"/content", "/content"},
                    Accepted{"/content/*", "/content/*"}, Accepted{"//account", "//account"},
                    Accepted{"/content//report", "/content//report"},
                    Accepted{"/content/folder[@name='Sales']/report[@name=\"O'Hara\"]",
                             "/content/folder{name=Sales}/report{name=O'Hara}"},
                    Accepted{"/a[@name='it''s']", "/a{name=it's}"},
                    Accepted{"/a[@name='a | b / c]']", "/a{name=a | b / c]}"},
                    Accepted{" //a [ @x = 'y' ] [@z=\"\"] | / | /b ", "//a{x=y}{z=} | / | /b"},
                    Accepted{"/a[@name='S\u00fcd']", "/a{name=S\u00fcd}"}));

struct Refused {
    const char* text;
    const char* position;
    const char* remedy;
};

class RefusedPath : public testing::TestWithParam<Refused> {};

TEST_P(RefusedPath, SaysWhereAndWhatToDo) {
    try {
        SearchPath::parse(GetParam().text);
        FAIL() << GetParam().text << " was accepted";
    } catch (const StoreError& e) {
        EXPECT_EQ(e.code(), StoreErrorCode::badSearchPath);
        EXPECT_THAT(e.what(), HasSubstr(std::string("position ") + GetParam().position + ":"));
        EXPECT_THAT(e.what(), HasSubstr(GetParam().remedy));
    }
}

INSTANTIATE_TEST_SUITE_P(
    SearchPath, RefusedPath,
    testing::Values(Refused{"", "1", "begin with '/'"}, Refused{"content", "1", "begin with '/'"},
                    Refused{"/content/", "10", "give a class"}, Refused{"//", "3", "give a class"},
                    Refused{"/content |", "11", "begin with '/'"}, Refused{"/content]", "9", "end the path"},
                    Refused{"/a[name='x']", "4", "[@name='...']"}, Refused{"/a[@name=x]", "10", "quotes"},
                    Refused{"/a[@name='x]", "10", "close it with the quote"},
                    Refused{"/a[@name='x'", "13", "close the condition"},
                    Refused{"/ancestor::folder", "10", "use '/', '//'"},
                    Refused{"/../a", "2", "give a class"}, Refused{"~", "1", "begin with '/'"}));

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
