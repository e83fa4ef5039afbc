#include "Common/HBLI18NBuffer.h"
#include "Session/MRLHelper.h"
#include "support/Failure.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLIDOM/HBLIDOM_Document.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstring>
#include <functional>

using namespace std::string_literals;

namespace {

using Encode = void (*)(const char*, std::size_t, HBLByteBuffer&);

struct Encoded {
    std::string text;
    std::string expected;
    std::size_t size = std::string::npos; // of the text when not given
};

void expectEncoded(Encode encode, const std::vector<Encoded>& rows) {
    for (const Encoded& row : rows) {
        HBLByteBuffer out;
        out.append("<");
        encode(row.text.data(), row.size == std::string::npos ? row.text.size() : row.size, out);
        EXPECT_EQ(out.view(), "<" + row.expected) << row.text;
    }
    HBLByteBuffer out;
    encode(nullptr, 5, out);
    encode("x", 0, out);
    EXPECT_EQ(out.view(), "");
}

TEST(Text, IsEscapedForXml) {
    std::vector<Encoded> rows = {
        {"\t\n\r", "\t\n\r"},
        {"\"&'<>", "&quot;&amp;&#39;&lt;&gt;"},
        {"\x01\x08\x0b\x0c\x0e\x1f ~\x7f", "&#1;&#8;&#11;&#12;&#14;&#31; ~\x7f"},
        {"\x80\xc8\xff", "\x80\xc8\xff"},
        {"a&bcd", "a&amp;b", 3},
        {"a&\0&"s, "a&amp;"},
        {"", ""},
        {"plain", "plain"},
    };
    expectEncoded(MRLHelper::xmlEncode, rows);
    rows[2] = {"\x01\x1f~", "&#1;&#31;~"}; // without the final space
    expectEncoded(MRLHelper::xmlEncodeForExcel, rows);
}

TEST(Text, KeepsItsSpacesForASpreadsheet) {
    const std::string span = "<span style='mso-spacerun:yes'>";
    expectEncoded(MRLHelper::xmlEncodeForExcel,
                  {{" ", span + "&nbsp;</span>"},
                   {"a b", "a b"},
                   {"a  b", "a " + span + "&nbsp;</span>b"},
                   {"a   b", "a " + span + "&nbsp;&nbsp;</span>b"},
                   {" a", span + "&nbsp;</span>a"},
                   {"a ", "a" + span + "&nbsp;</span>"},
                   {"a  ", "a " + span + "&nbsp;</span>"},
                   {"   ", span + "&nbsp;&nbsp;&nbsp;</span>"},
                   {" <\xc3\xa9 & ", span + "&nbsp;</span>&lt;\xc3\xa9 &amp;" + span + "&nbsp;</span>"},
                   {"a b ", "a b ", 5},                   // the NUL ends it before the last space by size
                   {"a  \0"s, "a " + span + "&nbsp;", 4}, // a span stays open there
                   {"\tb", "\tb"}});
}

TEST(Text, IsEscapedForScripts) {
    expectEncoded(MRLHelper::javaScriptEncode, {{"\b\t\n\v\f\r", R"(\b\t\n\v\f\r)"},
                                                {"\"'<>\\", R"(\"\'\<\>\\)"},
                                                {"\x01\x07\x0e\x1f", R"(\x1\x7\xe\x1f)"},
                                                {"</script>", R"(\</script\>)"},
                                                {"\x7f\x80\xff", "\x7f\x80\xff"},
                                                {"ab\0c"s, "ab"},
                                                {"a<<", R"(a\<)", 2}});
}

TEST(Text, HasItsEntitiesResolved) {
    expectEncoded(MRLHelper::xmlDecode, {
                                            {"&amp;&apos;&gt;&lt;&quot;", "&'><\""},
                                            {"a&amp;amp;b", "a&amp;b"},
                                            {"&AMP;&unknown;& &;&", "&AMP;&unknown;& &;&"},
                                            {"x&lt", "x&lt"},
                                            {"&lt;", "&lt", 3},
                                            {"&#65;&#x41;&#x6f;&#x6F;", "AAoo"},
                                            {"&#xZZ;&#6a;&#X41;&#-1;", "&#xZZ;&#6a;&#X41;&#-1;"},
                                            {"&#65", "&#65"},
                                            {"&#65;", "&#65", 4},
                                            {"&#;", "&#;"},
                                            {"&#;x", "\0x"s},
                                            {"&#x;", "\0"s},
                                            {"&#200;", "\xc8"},
                                            {"&#255;&#256;", "\xff\0"s},
                                            {"&#257;", "1\x01"},     // 0x0101
                                            {"&#8364;", "32\xac"},   // 0x20ac
                                            {"&#x1F600;", "246\0"s}, // 0xf600 of it
                                            {"&#x100000041;", "A"},  // 32 bits of it
                                            {"&#65;\0&#65;"s, "A"},
                                            {"&&amp;&#&#65;", "&&&#A"},
                                        });
}

TEST(Text, IsEncodedForUrls) {
    const struct {
        std::u16string text;
        const char* expected;
    } rows[] = {
        {u"()*-._", "()*-._"},
        {u"0189AZaz", "0189AZaz"},
        {u" !~", "+%21%7e"},
        {u"\"#$%&',/:;<=>?@[\\]^`{|}",
         "%22%23%24%25%26%27%2c%2f%3a%3b%3c%3d%3e%3f%40%5b%5c%5d%5e%60%7b%7c%7d"},
        {u"+\x01\x1f\x7f", "%2b%01%1f%7f"},
        {u"\u0080\u00E9\u07FF", "%c2%80%c3%a9%df%bf"},
        {u"\u0800\u20AC\uFFFF", "%e0%a0%80%e2%82%ac%ef%bf%bf"},
        {u"\U0001F600", "%ed%a0%bd%ed%b8%80"}, // d83d de00, one by one
        {u"", ""},
    };
    for (const auto& row : rows) {
        HBLByteBuffer out;
        out.append("before");
        MRLHelper::urlEncode(I18NString(row.text), out);
        EXPECT_EQ(out.view(), row.expected);
        MRLHelper::urlEncode(row.text.data(), row.text.size() * 2 + 1, out);
        EXPECT_EQ(out.view(), row.expected) << "an odd last byte is ignored";
    }
    HBLByteBuffer out;
    out.append("before");
    MRLHelper::urlEncode(nullptr, 0, out);
    EXPECT_EQ(out.view(), "");
    expectAssert([&] { MRLHelper::urlEncode(nullptr, 2, out); }, "HBL_ASSERT(input);");
}

TEST(Text, IsEncodedForFileNames) {
    const std::string tail(111, 'n');
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},
        {"report 1.pdf", "report 1.pdf"},
        {"\"*/:<>?\\|", "%22%2a%2f%3a%3c%3e%3f%5c%7c"},
        {"\xc3\xa9/", "\xc3\xa9%2f"},
        {std::string(130, 'n'), std::string(130, 'n')},
        {std::string(127, 'n') + ".pdf", tail + "....2779342752.pdf"}, // checksum by another program
        {std::string(131, 'n'), tail + "....3694252383"},
        // A dot within the new name of 125 characters repeats its end from there; behind it is the old one.
        {std::string(50, 'n') + "." + std::string(100, 'm'),
         std::string(50, 'n') + "." + std::string(60, 'm') + "....4149903406" + "." + std::string(60, 'm') +
             "....4149903406"},
        {std::string(118, 'n') + "." + std::string(20, 'm'), tail + "....4248673514" + "8673514"},
        {std::string(124, 'n') + "." + std::string(10, 'x'), tail + "....2648669326" + "6"},
    };
    for (auto [name, expected] : rows) {
        MRLHelper::fileNameEncode(name);
        EXPECT_EQ(name, expected);
    }
}

TEST(Text, OfAnObjectPathIsCutToThirtyTwoCharacters) {
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},
        {"/a:b", "%2fa%3ab"},
        {std::string(31, 'p'), std::string(31, 'p')},
        {"xxxxxxxxxxxxxxxxxxxxxxxxxx000002", "xxxxxxxxxxxxxxxxxxxxxxx_05c66728"}, // checksums by
        {"/bbbbbbbbbbbbbbbbbbbbbbbbbbbbc", "%2fbbbbbbbbbbbbbbbbbbbb_a6e90b58"},   // another program
    };
    for (auto [path, expected] : rows) {
        MRLHelper::encodeObjectPathShort(path);
        EXPECT_EQ(path, expected);
    }
}

TEST(Text, IsCopiedAndAppendedAsFarAsItFits) {
    const struct {
        const char* present;
        std::size_t size;
        const char* source;
        int copied;
        const char* copy;
        int appended;
        const char* appendix;
    } rows[] = {
        {"", 4, "abc", 1, "abc", 1, "abc"}, {"", 4, "abcd", 0, "abc", 0, "abc"},
        {"xy", 4, "a", 1, "a", 1, "xya"},   {"xy", 4, "ab", 1, "ab", 0, "xya"},
        {"xyz", 4, "a", 1, "a", 0, "xyz"},  {"xyz", 4, "", 1, "", 1, "xyz"},
        {"xy", 4, nullptr, 0, "", 0, "xy"}, {"xy", 1, "a", 0, "", 0, "xy"},
        {"xy", 0, "a", 0, "", 0, "xy"},
    };
    for (const auto& row : rows) {
        std::array<char, 8> dest{};
        std::strcpy(dest.data(), row.present);
        EXPECT_EQ(MRLHelper::strSafeCat(dest.data(), row.size, row.source), row.appended);
        EXPECT_STREQ(dest.data(), row.appendix);
        EXPECT_EQ(MRLHelper::strSafeCopy(dest.data(), row.size, row.source), row.copied);
        EXPECT_STREQ(dest.data(), row.copy);
    }
    EXPECT_EQ(MRLHelper::strSafeCat(nullptr, 4, "a"), 0);
    expectAssert([] { MRLHelper::strSafeCopy(nullptr, 4, "a"); }, "HBL_ASSERT(pszDest);");
}

TEST(Text, IsComparedByHalf) {
    const struct {
        const char* first;
        const char* second;
        int sign;
    } rows[] = {{"abcd", "abce", 0}, {"abcd", "acce", -1}, {"b", "aa", 1},
                {"a", "aa", -1},     {"aa", "a", 1},       {"", "", 0}};
    const auto wide = [](std::string_view text) {
        std::vector<unsigned short> units(text.begin(), text.end());
        units.push_back(0);
        return units;
    };
    for (const auto& row : rows) {
        const int order = MRLHelper::wstrcmp(wide(row.first).data(), wide(row.second).data());
        EXPECT_EQ((order > 0) - (order < 0), row.sign) << row.first << " " << row.second;
    }
    expectAssert([&] { MRLHelper::wstrcmp(nullptr, wide("").data()); }, "HBL_ASSERT(s1);");
    expectAssert([&] { MRLHelper::wstrcmp(wide("").data(), nullptr); }, "HBL_ASSERT(s2);");
}

TEST(Numbers, BecomeWideText) {
    const auto wide = [](auto value) {
        std::array<unsigned short, 12> buffer{};
        const int bytes = MRLHelper::convertNumToWideChar(value, buffer.data());
        const HBLI18NBuffer text(buffer.data());
        EXPECT_EQ(bytes, static_cast<int>(text.getSize()));
        return text.getString().toUtf8();
    };
    EXPECT_EQ(wide(0), "0");
    EXPECT_EQ(wide(-7), "-7");
    EXPECT_EQ(wide(INT_MIN), "-2147483648");
    EXPECT_EQ(wide(4294967295U), "4294967295");
    expectAssert([] { MRLHelper::convertNumToWideChar(1, nullptr); }, "HBL_ASSERT(buffer);");
    expectAssert([] { MRLHelper::convertNumToWideChar(1U, nullptr); }, "HBL_ASSERT(buffer);");
}

TEST(Numbers, OfMeasuresBecomePixels) {
    const struct {
        float value;
        int unit;
        float fontSize;
        int known;
        int pixels;
    } rows[] = {
        {36, 27, 0, 1, 48}, // half an inch at 96
        {1, 27, 0, 1, 1},   // 1.33
        {3, 28, 0, 1, 48},         {1.5F, 29, 0, 1, 144},      {2.54F, 30, 0, 1, 96},
        {1, 30, 0, 1, 37}, // 37.795
        {-1, 30, 0, 1, -37},       {25.4F, 31, 0, 1, 96},      {1, 31, 0, 1, 3},
        {1, 32, 0, 1, 16},                                // 16.078125
        {2, 32, -1, 1, 32},        {100, 35, 0, 1, 1607}, // 1607.8125
        {2, 35, 12.5F, 1, 25},     {7.9F, 33, 0, 1, 7},        {-7.9F, 33, 0, 1, -7},
        {1, 34, 0, 0, 5},          {1, 26, 0, 0, 5},           {1, 0, 0, 0, 5},
        {3e9F, 33, 0, 1, INT_MAX}, {-3e9F, 33, 0, 1, INT_MIN},
    };
    for (const auto& row : rows) {
        int pixels = 5;
        EXPECT_EQ(MRLHelper::convertToPixels(row.value, row.unit, 96, row.fontSize, pixels), row.known);
        EXPECT_EQ(pixels, row.pixels) << row.value << " of unit " << row.unit;
    }
}

TEST(Locales, HaveALanguageBeforeTheFirstDash) {
    const std::pair<const char*, const char*> rows[] = {{"en-us", "en"}, {"zh-Hans-CN", "zh"},
                                                        {"-us", ""},     {"en", nullptr},
                                                        {"", nullptr},   {"en_us", nullptr}};
    for (const auto& [locale, expected] : rows) {
        HBLI18NBuffer language(I18NString("kept"));
        EXPECT_EQ(MRLHelper::getLanguage(locale, language), expected == nullptr ? 0 : 1) << locale;
        EXPECT_EQ(language.getString(), expected == nullptr ? "kept" : expected);
    }
}

TEST(Checksums, OfAllFormsOfText) { // worked out by another program
    const I18NString text("ab");
    EXPECT_EQ(MRLHelper::getCrc(text), 0xe34542d4U);
    EXPECT_EQ(MRLHelper::getCrc(I18NString("AB"), 0), 0x44dbe8dcU);
    EXPECT_EQ(MRLHelper::getCrc(I18NString("AB"), 1), 0xe34542d4U);
    EXPECT_EQ(MRLHelper::getCrc(HBLI18NBuffer(text), 7), 0xe34542d4U);
    EXPECT_EQ(MRLHelper::getCrc(0xcbf43926U, text), 0x0a7f8659U);
    EXPECT_EQ(MRLHelper::getCrc("123456789"), 0xcbf43926U);
    EXPECT_EQ(MRLHelper::getCrc(MRLHelper::getCrc("123"), "456789"), 0xcbf43926U);
    std::string decimal;
    MRLHelper::getCrc("123456789", decimal);
    EXPECT_EQ(decimal, "3421780262");
    MRLHelper::getCrc(7, "", decimal);
    EXPECT_EQ(decimal, "7");
    HBLIDOM_Document document;
    MRLHelper::parseXML("<a  i='1'>x</a>", 15, document);
    EXPECT_EQ(MRLHelper::getCrc(document.getDocumentElement()), 0x53a3c861U) << "<a i=\"1\">x</a>";
    const char* const none = nullptr;
    for (const auto& step : std::initializer_list<std::function<void()>>{
             [&] { MRLHelper::getCrc(none); }, [&] { MRLHelper::getCrc(1, none); },
             [&] { MRLHelper::getCrc(none, decimal); }, [&] { MRLHelper::getCrc(1, none, decimal); }}) {
        expectAssert(step, "HBL_ASSERT(strInput != NULL);");
    }
}

} // namespace
