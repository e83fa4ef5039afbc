#include "support/Table.h"
#include "support/Threads.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NConverter.h"
#include "HBLCore/I18NString.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace {

std::u16string units(const std::string& spelled) {
    std::u16string text;
    std::istringstream in(spelled);
    for (unsigned unit = 0; in >> std::hex >> unit;)
        text += static_cast<char16_t>(unit);
    return text;
}

TEST(Text, IsReadAndWrittenInEachEncodingWithReplacementsForWhatIsNone) {
    for (const auto& row : mrl::test::table("encodings.txt")) {
        SCOPED_TRACE(row[0]);
        const I18NConverter original(row[1].c_str());
        const I18NConverter converter = original;
        const std::string& bytes = row[2];
        const std::u16string text = units(row[3]);
        const bool isUtf8 = row[1] == "utf-8";
        EXPECT_EQ(converter.toUnicode(bytes).view(), text);
        EXPECT_EQ(isUtf8 ? I18NString(bytes).view() : text, text);
        if (row[4] == "-")
            continue;
        const std::u16string given = row[4] == "=" ? text : units(row[4]);
        EXPECT_EQ(converter.fromUnicode(given), bytes);
        EXPECT_EQ(isUtf8 ? I18NString(given).toUtf8() : bytes, bytes);
    }
}

TEST(I18NString, CountsItsTerminatorInItsSize) {
    EXPECT_EQ(I18NString().size(), 2u);
    EXPECT_EQ(I18NString("ab").size(), 6u);
    EXPECT_EQ(I18NString("ab").length(), 2u);
    EXPECT_EQ(I18NString("ab").getExternalBuffer()[2], u'\0');
    EXPECT_EQ(I18NString(static_cast<const char*>(nullptr)),
              I18NString(static_cast<const char16_t*>(nullptr)));
}

TEST(I18NString, GivesTheNarrowTextOfItsPresentContent) {
    I18NString text("a");
    EXPECT_STREQ(text.c_str(), "a");
    text += "b";
    EXPECT_STREQ(text.c_str(), "ab");
    I18NString moved = std::move(text);
    EXPECT_STREQ(moved.c_str(), "ab");
    moved.setTo(u"\u20AC");
    EXPECT_STREQ(moved.c_str(), "\xE2\x82\xAC");
    moved = I18NString("x");
    EXPECT_STREQ(moved.c_str(), "x");
    moved.erase();
    EXPECT_STREQ(moved.c_str(), "");
}

TEST(I18NString, GivesTheSameNarrowTextToAllThreads) {
    const I18NString text("shared");
    std::vector<const char*> seen(8);
    mrl::test::inThreads(8, [&](std::size_t number) { seen[number] = text.c_str(); });
    EXPECT_EQ(std::vector<const char*>(8, text.c_str()), seen);
}

TEST(I18NString, FindsCutsAndReplaces) {
    I18NString text("a/b/c");
    EXPECT_EQ(text.rfind("/"), 3u);
    EXPECT_EQ(text.find("/", 2), 3u);
    EXPECT_EQ(text.rfind("x"), I18NString::npos);
    EXPECT_EQ(text.substr(2, 1), I18NString("b"));
    EXPECT_EQ(text.substr(9), I18NString());
    text.replaceAll("/", "//");
    EXPECT_EQ(text, I18NString("a//b//c"));
    text.erase(1);
    EXPECT_EQ(text, I18NString("a"));
    EXPECT_TRUE(I18NString("STRASSE").equalsIgnoreCase("stra\u00DFe"));
    EXPECT_TRUE(I18NString("a") < I18NString("b"));
    std::ostringstream out;
    out << I18NString(u"\u00E9") + "!";
    EXPECT_EQ(out.str(), "\xC3\xA9!");
}

TEST(Converter, RefusesAnUnknownEncodingByName) {
    for (const char* name : {"no-such-encoding", ""})
        try {
            I18NConverter converter(name);
            ADD_FAILURE() << "accepted: " << name;
        } catch (HBLIllegalStateError& e) {
            EXPECT_EQ(e.getText(), "\"" + std::string(name) + "\" is not the name of a known encoding");
        }
    EXPECT_THROW(I18NConverter(nullptr), HBLAssertError);
}

TEST(Converter, TellsWhenABufferIsTooSmall) {
    for (const char* encoding : {"utf-8", "ISO-8859-1"}) {
        const I18NConverter converter(encoding);
        char buffer[5] = "";
        std::size_t bytes = 9;
        EXPECT_EQ(converter.fromUnicode(u"abcd", buffer, 5, &bytes), 1);
        EXPECT_STREQ(buffer, "abcd");
        EXPECT_EQ(bytes, 4u);
        EXPECT_EQ(converter.fromUnicode(u"abcd", buffer, 4), 0);
        EXPECT_EQ(converter.fromUnicode(u"", buffer, 1), 1);
        EXPECT_EQ(converter.fromUnicode(u"", buffer, 0), 0);
    }
    std::size_t bytes = 0;
    const std::unique_ptr<char[]> block(I18NConverter().fromUnicodeNew(u"\u20AC", &bytes));
    EXPECT_STREQ(block.get(), "\xE2\x82\xAC");
    EXPECT_EQ(bytes, 3u);
}

} // namespace
