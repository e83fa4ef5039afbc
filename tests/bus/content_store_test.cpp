#include "store/ContentStore.h"
#include "store/Selection.h"
#include "store/SqliteError.h"
#include "store/Statement.h"
#include "store/StoreError.h"
#include "store/StoreFileError.h"
#include "store/StoreLayout.h"
#include "support/Table.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace mrl::bus {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* sales = "/content/folder[@name='Sales']";
constexpr const char* revenue = "/content/folder[@name='Sales']/report[@name='Revenue']";

class StoreTest : public testing::Test {
protected:
    static StoreSettings settings() {
        StoreSettings result;
        result.seams.now = [] { return std::string("2024-05-31T09:00:00.000Z"); };
        return result;
    }

    std::vector<std::string> names(const QueryRequest& request) {
        QueryRequest asked = request;
        asked.properties = {"defaultName"};
        std::vector<std::string> result;
        for (const auto& object : m_store.query(asked))
            result.push_back(*object.get<std::string>("defaultName"));
        return result;
    }
    std::vector<std::string> names(const std::string& searchPath) {
        return names(QueryRequest{.searchPath = searchPath});
    }

    StoreObject one(const std::string& searchPath, std::vector<std::string> properties) {
        QueryRequest request;
        request.searchPath = searchPath;
        request.properties = std::move(properties);
        const auto found = m_store.query(request);
        EXPECT_THAT(found, SizeIs(1)) << searchPath;
        return found.empty() ? StoreObject{} : found.front();
    }

    static StoreObject named(const char* objectClass, const std::string& name) {
        return {objectClass, {{"defaultName", name}}};
    }

    /// A change of the object `searchPath`.
    static StoreObject change(const char* objectClass, const std::string& searchPath, const char* property,
                              PropertyValue value) {
        return {objectClass, {{"searchPath", searchPath}, {property, std::move(value)}}};
    }

    template <class F>
    static std::string refusal(F&& step) {
        try {
            step();
            return "nothing refused";
        } catch (const StoreError& e) {
            return std::string(codeText(e.code()));
        }
    }

    ContentStore m_store{settings()};
};

TEST_F(StoreTest, SelectsByPathChildrenDescendantsAndConditions) {
    for (const auto& row : mrl::test::table("selections.txt")) {
        const auto expected = row[1].empty() ? std::vector<std::string>() : mrl::test::split(row[1], "|");
        EXPECT_EQ(names(row[0]), expected) << row[0];
    }
}

TEST_F(StoreTest, SortsBySeveralPropertiesAndPages) {
    QueryRequest request{.searchPath = "/content/*",
                         .sortBy = {{"objectClass", true}, {"defaultName", false}}};
    EXPECT_THAT(names(request), ElementsAre("Retail", "Archive 2023", "Finance", "Payroll", "Sales"));
    request.skipObjects = 1;
    request.maxObjects = 2;
    EXPECT_THAT(names(request), ElementsAre("Archive 2023", "Finance"));
    request.maxObjects = 0;
    EXPECT_THAT(names(request), IsEmpty());
    EXPECT_THAT(names({.searchPath = "//account", .sortBy = {{"email", true}}}),
                ElementsAre("Tomas Ruiz", "Mei Tanaka", "Lena Brandt"));
}

TEST_F(StoreTest, SortsTextAsReadersExpectAndAbsentValuesLast) {
    m_store.add("/content",
                {named("package", "retail2"), named("package", "\u00dcber"), named("package", "zebra")}, {});
    EXPECT_THAT(names({.searchPath = "/content/package", .sortBy = {{"defaultName", false}}}),
                ElementsAre("Retail", "retail2", "\u00dcber", "zebra"));
    EXPECT_THAT(names({.searchPath = "/content/package", .sortBy = {{"defaultDescription", true}}}),
                ElementsAre("Retail", "retail2", "zebra", "\u00dcber"));
}

TEST_F(StoreTest, GivesTheAskedPropertiesAndNoOther) {
    const auto object =
        one(revenue, {"defaultName", "name", "objectClass", "version", "hasChildren", "parent", "owner",
                      "defaultDescription", "disabled", "permissions", "noSuchProperty"});
    const References parent{{"folder", {{"searchPath", std::string(sales)}}}};
    EXPECT_EQ(object.objectClass, "report");
    EXPECT_EQ(object.properties.at("name"),
              PropertyValue(std::vector<LocalText>{{"en", "Revenue"}, {"de", "Umsatz"}}));
    EXPECT_EQ(object.properties.at("version"), PropertyValue(std::int64_t{1}));
    EXPECT_EQ(object.properties.at("hasChildren"), PropertyValue(false));
    EXPECT_EQ(object.properties.at("parent"), PropertyValue(parent));
    EXPECT_EQ(object.get<References>("owner")->front().searchPath(),
              "/directory/namespace[@name='People']/account[@name='Lena Brandt']");
    EXPECT_EQ(*object.get<std::string>("defaultDescription"), "Revenue by month and region");
    EXPECT_EQ(object.get<std::vector<std::string>>("permissions")->front(), "read");
    EXPECT_THAT(object.properties, SizeIs(10));
    EXPECT_THAT(one(revenue, {}).properties, SizeIs(1)) << "none asked: the search path alone";
}

TEST_F(StoreTest, FollowsReferencesAsFarAsAsked) {
    QueryRequest request{.searchPath = revenue,
                         .properties = {"owner", "ancestors"},
                         .referenceProperties = {{"owner", {"email", "objectClass"}}}};
    const auto object = m_store.query(request).at(0);
    EXPECT_EQ(*object.get<References>("owner")->at(0).get<std::string>("email"),
              "lena.brandt@company.example");
    EXPECT_EQ(object.get<References>("ancestors")->at(2).searchPath(), sales);
}

TEST_F(StoreTest, KeepsFromCallersWhatTheyMayNotSee) {
    EXPECT_EQ(refusal([&] { one("/content/folder[@name='Sales']/report[@name='Salary comparison']", {}); }),
              "cmNoRead");
    EXPECT_EQ(refusal([&] { one("/content/folder[@name='Payroll']/*", {}); }), "cmNoPermission");
    EXPECT_EQ(refusal([&] { one("/content/folder[@name='Payroll']/report[@name='Salaries']", {}); }),
              "cmNoPermission");
    EXPECT_THAT(names("//report[@name='Salary comparison'] | //report[@name='Salaries']"), IsEmpty());
    EXPECT_THAT(names({.searchPath = "/content/folder", .permission = Right::write}),
                ElementsAre("Finance", "Sales"));
}

TEST_F(StoreTest, AddsInheritingRightsAndRefusesATakenName) {
    const auto added = m_store.add(sales, {named("report", "O'Hara's \"Best\"")},
                                   {.returnProperties = {"searchPath", "permissions"}});
    const std::string path = "/content/folder[@name='Sales']/report[@name='O''Hara''s \"Best\"']";
    EXPECT_EQ(added.at(0).searchPath(), path);
    EXPECT_EQ(added.at(0).get<std::vector<std::string>>("permissions")->size(), 5U);
    EXPECT_THAT(names(path), ElementsAre("O'Hara's \"Best\""));

    EXPECT_EQ(refusal([&] { m_store.add(sales, {named("report", "Revenue")}, {}); }), "cmNameInUse");
    EXPECT_EQ(refusal([&] { m_store.add(sales, {named("query", "Revenue")}, {.clash = NameClash::update}); }),
              "cmNameInUse");
}

TEST_F(StoreTest, UpdateKeepsAnExistingObjectAndReplaceDoesNot) {
    const auto before = *one(revenue, {"storeID"}).get<std::string>("storeID");
    m_store.add(sales, {named("report", "Revenue")}, {.clash = NameClash::update});
    EXPECT_EQ(*one(revenue, {"storeID"}).get<std::string>("storeID"), before);
    EXPECT_EQ(*one(revenue, {"version"}).get<std::int64_t>("version"), 2);
    m_store.add(sales, {named("report", "Revenue")}, {.clash = NameClash::replace});
    EXPECT_NE(*one(revenue, {"storeID"}).get<std::string>("storeID"), before);
    EXPECT_EQ(one(revenue, {"defaultDescription"}).properties.size(), 0U);
}

TEST_F(StoreTest, UpdatesPropertiesOfEveryKindAndClearsThem) {
    const std::vector<std::pair<const char*, PropertyValue>> values{
        {"aText", std::string("a & b")},
        {"aNumber", std::int64_t{-7}},
        {"aTruth", true},
        {"aDecimal", 1.25},
        {"localTexts", std::vector<LocalText>{{"en", "a"}, {"fr", "b"}}},
        {"texts", std::vector<std::string>{"x", "y"}},
        {"references", References{{"folder", {{"searchPath", std::string(sales)}}}}}};
    for (const auto& [name, value] : values) {
        m_store.update({change("report", revenue, name, value)}, {});
        EXPECT_EQ(one(revenue, {name}).properties.at(name), value) << name;
        m_store.update({change("report", revenue, name, {})}, {});
        EXPECT_THAT(one(revenue, {name}).properties, IsEmpty()) << name;
    }
    m_store.update({change("report", revenue, "description", std::vector<LocalText>{{"de", "Neu"}})}, {});
    EXPECT_EQ(*one(revenue, {"defaultDescription"}).get<std::string>("defaultDescription"), "Neu");
}

TEST_F(StoreTest, RenamingMovesThePathsOfAllBelowAndNothingElse) {
    m_store.add("/content", {named("folder", "Sales 2")}, {});
    m_store.update({change("folder", sales, "defaultName", std::string("Verk\u00e4ufe"))}, {});
    EXPECT_THAT(names("/content/folder[@name='Verk\u00e4ufe']/folder[@name='Regions']/report[@name='South']"),
                ElementsAre("South"));
    EXPECT_THAT(names(sales), IsEmpty());
    EXPECT_THAT(names("/content/folder[@name='Sales 2']"), ElementsAre("Sales 2"));
    EXPECT_EQ(one("/content/folder[@name='Verk\u00e4ufe']", {"name"}).properties.at("name"),
              PropertyValue(std::vector<LocalText>{{"en", "Verk\u00e4ufe"}, {"de", "Vertrieb"}}));
}

TEST_F(StoreTest, RefusesChangesByTheirCode) {
    const auto code = [&](const StoreObject& object) {
        return refusal([&] { m_store.update({object}, {}); });
    };
    for (const auto& row : mrl::test::table("refused_changes.txt")) {
        const PropertyValue value = row[5] == "true" ? PropertyValue(true) : PropertyValue(row[5]);
        EXPECT_EQ(code(change(row[2].c_str(), row[3] == "REVENUE" ? revenue : row[3], row[4].c_str(), value)),
                  row[1])
            << row[0];
    }
    const References nowhere{{"", {{"searchPath", std::string("/content/x[@name='y']")}}}};
    EXPECT_EQ(code(change("report", revenue, "credential", nowhere)), "cmNotFound");
    EXPECT_EQ(code(named("report", "x")), "cmNotFound") << "without a search path";
    EXPECT_EQ(refusal([&] { m_store.add("/", {named("folder", "x")}, {}); }), "cmNoWrite");
    EXPECT_EQ(refusal([&] { m_store.add(sales, {named("folder'", "x")}, {}); }), "cmBadClass");
    EXPECT_EQ(refusal([&] { m_store.add(sales, {{"folder", {}}}, {}); }), "cmBadName");
}

TEST_F(StoreTest, AcceptsWhatItGaveWhenItComesBackUnchanged) {
    const auto given =
        one(revenue, {"searchPath", "creationTime", "version", "parent", "hasChildren", "permissions",
                      "owner", "storeID", "objectClass", "ancestors", "name", "defaultName"});
    EXPECT_EQ(refusal([&] { m_store.update({given}, {}); }), "nothing refused");
}

TEST_F(StoreTest, ChangesAllOrNothing) {
    EXPECT_EQ(refusal([&] {
                  m_store.add(sales, {named("report", "New"), named("report", "Revenue")}, {});
              }),
              "cmNameInUse");
    EXPECT_THAT(names("/content/folder[@name='Sales']/report[@name='New']"), IsEmpty());
    EXPECT_EQ(refusal([&] { m_store.remove({revenue, "/content/report[@name='x']"}, {}); }), "cmNotFound");
    EXPECT_THAT(names(revenue), ElementsAre("Revenue"));
}

TEST_F(StoreTest, DeletesTreesWhenAskedToAndCounts) {
    const std::string regions = "/content/folder[@name='Sales']/folder[@name='Regions']";
    EXPECT_EQ(refusal([&] { m_store.remove({regions}, {}); }), "cmHasChildren");
    EXPECT_EQ(m_store.remove({regions, regions + "/report[@name='North']"}, {.recursive = true}), 4);
    EXPECT_EQ(refusal([&] { m_store.remove({sales}, {.recursive = true}); }), "cmNoWrite")
        << "one report below is not the caller's";
    EXPECT_EQ(refusal([&] { m_store.remove({"/content"}, {.recursive = true}); }), "cmNoWrite");
    EXPECT_EQ(m_store.remove({"/directory/namespace[@name='People']/account[@name='Lena Brandt']"}, {}), 1);
    EXPECT_THAT(one(revenue, {"owner"}).properties, IsEmpty()) << "the owner is gone";
}

TEST_F(StoreTest, TreatsReferencesAsTheOptionsSay) {
    const std::string retail = "/content/package[@name='Retail']";
    EXPECT_EQ(refusal([&] { m_store.remove({retail}, {.recursive = true, .keepReferenced = true}); }),
              "cmReferenced");
    EXPECT_EQ(m_store.remove({"/content/folder[@name='Sales']/folder[@name='Regions']"},
                             {.recursive = true, .keepReferenced = true}),
              4);

    const References nowhere{{"", {{"searchPath", std::string("/content/package[@name='Gone']")}}}};
    m_store.update({change("report", revenue, "metadataModelPackage", nowhere)},
                   {.deadReference = DeadReference::drop});
    EXPECT_THAT(one(revenue, {"metadataModelPackage"}).properties, IsEmpty());
}

TEST_F(StoreTest, ForceDeletesWhatTheOwnerOfTheContainerMay) {
    const std::string salaries = "/content/folder[@name='Sales']/report[@name='Salary comparison']";
    EXPECT_EQ(refusal([&] { m_store.remove({salaries}, {}); }), "cmNoWrite");
    EXPECT_EQ(m_store.remove({salaries}, {.force = true}), 1);
    const std::string archived = "/content/folder[@name='Archive 2023']/report[@name='Annual report']";
    EXPECT_EQ(refusal([&] { m_store.remove({archived}, {.force = true}); }), "cmNoWrite");
}

TEST_F(StoreTest, GivesUpWhatTakesTooLong) {
    auto impatient = settings();
    impatient.seams.timeLimit = std::chrono::milliseconds(-1);
    ContentStore store(std::move(impatient));
    std::vector<StoreObject> many;
    for (int i = 0; i < 300; ++i)
        many.push_back(named("report", "r" + std::to_string(i)));
    EXPECT_EQ(refusal([&] {
                  store.add(sales, many, {});
                  store.query({.searchPath = "//*[@a='1'] | //*[@b='1'] | //*//*[@c='1']"});
              }),
              "cmTooMuch");
}

/// Every access to the object table goes through an index, but for asking for all objects.
TEST(Selection, NeverScansTheStoreForAStep) {
    Database database("");
    StoreLayout::prepare(database, false);
    for (const char* text :
         {"/content/folder[@name='a']/report[@name='b']", "/content/*", "/content/folder[@name='a']/*",
          "/content//report", "//account", "//account[@surname='x']", "/content/folder/report",
          "/content//folder//report[@name='x']/*", "/content/* | //account"}) {
        const auto selection = Selection::of(SearchPath::parse(text));
        Statement plan(database, "EXPLAIN QUERY PLAN SELECT " +
                                     std::string(selection.distinct ? "DISTINCT " : "") + "o.id FROM " +
                                     selection.from + " WHERE " + selection.where + " ORDER BY o.path");
        for (std::string all; plan.step();) {
            EXPECT_THAT(plan.text(3), testing::Not(testing::StartsWith("SCAN o"))) << text;
        }
    }
}

class StoreFile : public StoreTest {
protected:
    StoreSettings inFile() const {
        auto result = settings();
        result.file = m_file.string();
        return result;
    }
    const mrl::test::TemporaryDirectory m_directory;
    const std::filesystem::path m_file = m_directory.path() + "/store.db";
};

TEST_F(StoreFile, KeepsItsContentFromOneRunToTheNext) {
    { ContentStore(inFile()).add("/content", {named("folder", "Mine")}, {}); }
    ContentStore again(inFile());
    EXPECT_THAT(again.query({.searchPath = "/content/folder[@name='Mine']"}), SizeIs(1));
}

TEST_F(StoreFile, ReadOnlyNeverMakesAFile) {
    auto readOnly = inFile();
    readOnly.readOnly = true;
    EXPECT_THROW(ContentStore{readOnly}, SqliteError);
    EXPECT_FALSE(std::filesystem::exists(m_file));
}

TEST_F(StoreFile, ReadOnlyRefusesChangesAndLeavesTheFileAlone) {
    { ContentStore store(inFile()); }
    auto readOnly = inFile();
    readOnly.readOnly = true;
    ContentStore store(readOnly);
    EXPECT_EQ(refusal([&] { store.add("/content", {named("folder", "Mine")}, {}); }), "cmNoWrite");
    EXPECT_THAT(store.query({.searchPath = "/content/*"}), SizeIs(5));
}

TEST_F(StoreFile, EmptyHasTheContainersAndNothingInThem) {
    auto empty = inFile();
    empty.empty = true;
    ContentStore store(empty);
    EXPECT_THAT(store.query({.searchPath = "/*"}), SizeIs(4));
    EXPECT_THAT(store.query({.searchPath = "/*/*"}), IsEmpty());
}

TEST_F(StoreFile, RefusesFilesThatAreNoStore) {
    std::ofstream(m_file)
        << "this is a letter, and long enough to be taken for a database header by nobody at all";
    try {
        ContentStore store(inFile());
        ADD_FAILURE() << "a text file was opened as a store";
    } catch (const SqliteError& e) {
        EXPECT_THAT(e.what(), HasSubstr(m_file.string()));
    }
    std::filesystem::remove(m_file);
    Database(m_file.string()).execute("CREATE TABLE mine (a)");
    EXPECT_THROW(ContentStore{inFile()}, StoreFileError);
    std::filesystem::remove(m_file);
    { ContentStore store(inFile()); }
    Database(m_file.string()).execute("PRAGMA user_version = 99");
    EXPECT_THROW(ContentStore{inFile()}, StoreFileError);
}

} // namespace
} // namespace mrl::bus
