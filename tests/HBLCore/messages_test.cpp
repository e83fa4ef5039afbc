#include "support/Environment.h"
#include "support/TemporaryDirectory.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLMessage.h"
#include "HBLCore/HBLMessageCatalogue.h"
#include "HBLCore/HBLMessageString.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

/// Catalogues of the component "Test" in a directory of their own, for as long as the test runs.
class Messages : public testing::Test {
protected:
    Messages() {
        write("Test_en.txt", "# comment\n\n"
                             "0x00000001 no \"{0}\" in {1}\n"
                             "0x00000002 it''s {0,number} of {1} \\\nat {2}\r\n"
                             "0x00000003 broken {0\n"
                             "0x00000004 needs a number: {0,number,integer}\n");
        write("Test_de.txt", "0x00000001 kein \"{0}\" in {1}\n0x00000002 {0,number} von {1} bei {2}\n");
        write("Test_de_at.txt", "0x00000001 ka \"{0}\" ned in {1}\n");
    }
    void write(const char* name, const char* text) const {
        std::ofstream(m_directory.path() + "/" + name) << text;
    }

    static std::string text(const HBLMessageBase& message, const char* language = nullptr) {
        std::string result = "old";
        message.format(language, result);
        return result;
    }

    static HBLMessage message(std::uint32_t number) { return {"Test", number}; }

private:
    const mrl::test::TemporaryDirectory m_directory;
    const mrl::test::Variable m_resources{"MRL_RESOURCES", m_directory.path()};
};

TEST_F(Messages, ReadInTheLanguageAskedForOrTheNearestThatHasThem) {
    HBLMessage greeting = message(1);
    greeting << "x"
             << "y";
    struct {
        const char* language;
        const char* expected;
    } const rows[] = {
        {nullptr, "no \"x\" in y"},      {"en", "no \"x\" in y"},        {"de", "kein \"x\" in y"},
        {"de-CH", "kein \"x\" in y"},    {"DE_at", "ka \"x\" ned in y"}, {"fr", "no \"x\" in y"},
        {"../Test_de", "no \"x\" in y"}, {"", "no \"x\" in y"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(text(greeting, row.language), row.expected) << (row.language ? row.language : "null");
}

TEST_F(Messages, TakeEachMessageFromTheNextLanguageWhenOneLacksIt) {
    HBLMessage counted = message(2);
    counted << HBLMessageParm(1234567, HBLMessageParm::eLocal) << 1234567 << std::size_t{8};
    EXPECT_EQ(text(counted, "en"), "it's 1,234,567 of 1234567 at 8");
    EXPECT_EQ(text(counted, "de-at"), "1.234.567 von 1234567 bei 8");
}

TEST_F(Messages, ShowHostileParametersAsTheyAre) {
    for (const char* hostile :
         {"{0}", "'{1}'", "it's", "}{", "{0,choice,0#a|1#b}", "", "%s%n", "\xEF\xBF\xBD"}) {
        HBLMessage greeting = message(1);
        greeting << hostile << "y";
        EXPECT_EQ(text(greeting), std::string("no \"") + hostile + "\" in y");
    }
}

TEST_F(Messages, FallBackToNumberAndParameters) {
    HBLMessage unknown = message(0xA64112C6);
    unknown << I18NString(u"\u00FC") << 5 << HBLMessageParm(6000, HBLMessageParm::eLocal);
    EXPECT_EQ(text(unknown), "Test 0xa64112c6: \xC3\xBC, 5, 6000");
    EXPECT_EQ(text(message(3)), "Test 0x00000003") << "a broken pattern";
    HBLMessage wrongKind = message(4);
    wrongKind << "seven";
    EXPECT_EQ(text(wrongKind), "Test 0x00000004: seven") << "a pattern that the parameters do not fit";
    EXPECT_EQ(text(HBLMessage("Nowhere", 1)), "Nowhere 0x00000001");
    EXPECT_EQ(text(HBLMessage("../x", 1)), "../x 0x00000001");
}

TEST_F(Messages, WithTooFewParametersShowThePlaceThatIsEmpty) {
    HBLMessage greeting = message(1);
    greeting << "x";
    EXPECT_EQ(text(greeting), "no \"x\" in {1}");
}

TEST_F(Messages, OfASetStandOneALineAndStayAsTheyWereAdded) {
    HBLMessageSet set;
    HBLMessage greeting = message(1);
    greeting << "x"
             << "y";
    set.addMessage(greeting);
    greeting.setMessage(2);
    set.addMessage(HBLMessageString("as is {0}"));
    HBLMessageSet other = set;
    other.transferMessages(set);
    EXPECT_EQ(set.format("de"), "kein \"x\" in y\nas is {0}");
    EXPECT_EQ(other.getMessageCount(), 4u);
    EXPECT_EQ(HBLMessageSet().format(), "");
    EXPECT_THROW(set.getMessageAt(2), HBLAssertError);
}

TEST(Catalogue, TellsTheLinesThatAreNoMessage) {
    std::istringstream in(
        "0x00000001 fine \\\nand long\n12 short\n0x00000002\n0x00000003 {\n0x00000001 again\n");
    std::vector<std::string> problems;
    const HBLMessageCatalogue catalogue(in, &problems);
    EXPECT_EQ(catalogue.size(), 1u);
    ASSERT_NE(catalogue.find(1), nullptr);
    EXPECT_EQ(*catalogue.find(1), u"fine and long");
    ASSERT_EQ(problems.size(), 4u);
    const char* const begins[] = {"line 3: a message begins", "line 4: no text behind 0x00000002",
                                  "line 5: the pattern of 0x00000003 is broken", "line 6: 0x00000001 stands"};
    for (std::size_t i = 0; i < problems.size(); ++i)
        EXPECT_TRUE(problems[i].starts_with(begins[i])) << problems[i];
}

} // namespace
