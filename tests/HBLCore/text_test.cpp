#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NConverter.h"
#include "HBLCore/I18NString.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>
#include <vector>

namespace {

struct Bytes {
    const char* name;
    std::string utf8;
    std::u16string utf16;
};

class Decoding : public testing::TestWithParam<Bytes> {};

TEST_P(Decoding, ReplacesWhatIsNotValidAndNothingElse) {
    EXPECT_EQ(I18NString(GetParam().utf8).view(), GetParam().utf16) << GetParam().name;
    EXPECT_EQ(I18NConverter().toUnicode(GetParam().utf8).view(), GetParam().utf16) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Utf8, Decoding,
    testing::Values(Bytes{"nothing", "", u""}, Bytes{"ASCII", "abc", u"abc"},
                    Bytes{"two, three and four bytes", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80",
                          u"\u00E9\u20AC\U0001F600"},
                    Bytes{"a NUL inside", std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
                    Bytes{"a lone continuation", "a\x80z", u"a\uFFFDz"},
                    Bytes{"cut at the end", "a\xE2\x82", u"a\uFFFD"},
                    Bytes{"cut before a letter", "\xE2\x82z", u"\uFFFDz"},
                    Bytes{"an overlong slash", "\xC0\xAF", u"\uFFFD\uFFFD"},
                    Bytes{"a surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
                    Bytes{"above the last character", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}));

TEST(I18NString, EncodesALoneSurrogateAsReplacement) {
    EXPECT_EQ(I18NString(u"a\xD83Dz").toUtf8(), "a\xEF\xBF\xBDz");
    EXPECT_EQ(I18NString(u"\xDE00").toUtf8(), "\xEF\xBF\xBD");
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
    std::vector<std::thread> threads;
    for (auto& result : seen)
        threads.emplace_back([&] { result = text.c_str(); });
    for (auto& thread : threads)
        thread.join();
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
    EXPECT_TRUE(I18NString("STRASSE").equalsIgnoreCase("stra\xC3\x9F"
                                                       "e"));
    EXPECT_TRUE(I18NString("a") < I18NString("b"));
    std::ostringstream out;
    out << I18NString(u"\u00E9") + "!";
    EXPECT_EQ(out.str(), "\xC3\xA9!");
}

struct Encoded {
    const char* encoding;
    std::u16string text;
    std::string bytes;
    std::u16string back; // what the bytes give
};

class Conversion : public testing::TestWithParam<Encoded> {};

TEST_P(Conversion, GoesBothWays) {
    const auto& row = GetParam();
    const I18NConverter original(row.encoding);
    const I18NConverter converter = original;
    EXPECT_EQ(converter.fromUnicode(row.text), row.bytes) << row.encoding;
    EXPECT_EQ(converter.toUnicode(row.bytes).view(), row.back) << row.encoding;
}

INSTANTIATE_TEST_SUITE_P(Encodings, Conversion,
                         testing::Values(Encoded{"utf-8", u"\u20AC", "\xE2\x82\xAC", u"\u20AC"},
                                         Encoded{"ISO-8859-1", u"\u00E9\u4E00", "\xE9?", u"\u00E9?"},
                                         Encoded{"windows-1252", u"\u20AC", "\x80", u"\u20AC"},
                                         Encoded{"UTF16_LittleEndian", u"a\u20AC",
                                                 std::string("a\0\xAC\x20", 4), u"a\u20AC"},
                                         Encoded{"UTF16_LittleEndian", u"\xD800", "\xFD\xFF", u"\uFFFD"},
                                         Encoded{"utf16", u"a",
                                                 std::string("\xFF\xFE"
                                                             "a\0",
                                                             4),
                                                 u"a"},
                                         Encoded{"Shift_JIS", u"\u3042", "\x82\xA0", u"\u3042"}));

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
