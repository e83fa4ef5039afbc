#include "Common/HBLI18NBuffer.h"
#include "Session/MRLHelper.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"
#include "support/Table.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLIDOM/HBLIDOM_Document.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <sys/timeb.h>

namespace {

using Operation = std::function<std::string(const std::string& input, int argument)>;

Operation encoding(void (*encode)(const char*, std::size_t, HBLByteBuffer&)) {
    return [encode](const std::string& input, int size) {
        HBLByteBuffer out;
        encode(nullptr, 5, out);
        encode("x", 0, out);
        encode(input.data(), size < 0 ? input.size() : static_cast<std::size_t>(size), out);
        return std::string(out.view());
    };
}

Operation rewriting(void (*rewrite)(std::string&)) {
    return [rewrite](std::string text, int) { return rewrite(text), text; };
}

Operation rewriting(void (*rewrite)(I18NString&)) {
    return [rewrite](I18NString text, int) { return rewrite(text), text.toUtf8(); };
}

/// `input` is what is there, "+", what is added.
Operation copying(int (*copy)(char*, std::size_t, const char*)) {
    return [copy](const std::string& input, int size) {
        std::array<char, 8> dest{};
        input.copy(dest.data(), input.find('+'));
        const int result = copy(dest.data(), static_cast<std::size_t>(size), &input[input.find('+') + 1]);
        return std::to_string(result) + " " + dest.data();
    };
}

template <class Number>
std::string toWide(Number number) {
    std::array<unsigned short, 12> units{};
    const int bytes = MRLHelper::convertNumToWideChar(number, units.data());
    return std::to_string(bytes / 2) + " " + HBLI18NBuffer(units.data()).getString().toUtf8();
}

std::vector<unsigned short> wide(const std::string& text) {
    std::vector<unsigned short> units(text.begin(), text.end());
    units.push_back(0);
    return units;
}

const std::map<std::string, Operation> OPERATIONS = {
    {"xmlEncode", encoding(MRLHelper::xmlEncode)},
    {"excel", encoding(MRLHelper::xmlEncodeForExcel)},
    {"javaScript", encoding(MRLHelper::javaScriptEncode)},
    {"xmlDecode", encoding(MRLHelper::xmlDecode)},
    {"urlEncode",
     [](const I18NString& text, int) {
         HBLByteBuffer out;
         out.append("before");
         MRLHelper::urlEncode(text, out);
         HBLByteBuffer again;
         MRLHelper::urlEncode(text.getExternalBuffer(), text.length() * 2 + 1, again); // an odd last byte
         EXPECT_EQ(again.view(), out.view());
         return std::string(out.view());
     }},
    {"fileName", rewriting(MRLHelper::fileNameEncode)},
    {"objectPath", rewriting(MRLHelper::encodeObjectPathShort)},
    {"commandPath", rewriting(MRLHelper::fixCommandPath)},
    {"stripBackSlash", rewriting(MRLHelper::stripBackSlash)},
    {"strSafeCopy", copying(MRLHelper::strSafeCopy)},
    {"strSafeCat", copying(MRLHelper::strSafeCat)},
    {"wstrcmp",
     [](const std::string& input, int) {
         const std::size_t plus = input.find('+');
         const int order =
             MRLHelper::wstrcmp(wide(input.substr(0, plus)).data(), wide(input.substr(plus + 1)).data());
         return order < 0 ? "-" : order > 0 ? "+" : "0";
     }},
    {"toWide", [](const std::string& input, int) { return toWide(std::stoi(input)); }},
    {"toWideUnsigned",
     [](const std::string& input, int) { return toWide(static_cast<unsigned>(std::stoul(input))); }},
    {"pixels",
     [](const std::string& input, int fontSize) {
         int pixels = 5;
         const int known =
             MRLHelper::convertToPixels(std::stof(input), std::stoi(input.substr(input.find(' '))), 96,
                                        static_cast<float>(fontSize), pixels);
         return std::to_string(known) + " " + std::to_string(pixels);
     }},
    {"language",
     [](const std::string& locale, int) {
         HBLI18NBuffer language(I18NString("kept"));
         const int known = MRLHelper::getLanguage(locale, language);
         return std::to_string(known) + " " + language.getString().toUtf8();
     }},
    {"basename",
     [](std::string name, int) {
         std::string extension = "kept";
         MRLHelper::fileBasename(name, name, extension);
         return name + " " + extension;
     }},
    {"basePath",
     [](const std::string& gateway, int strip) {
         const ConfigurationFile file(
             ConfigurationFile::withParameters(ConfigurationFile::parameter("gateway", gateway)));
         I18NString path("before");
         MRLHelper::getBasePath(path, strip);
         return path.toUtf8();
     }},
    {"time",
     [](std::string text, int) {
         const timeb when{std::stoll(text),
                          static_cast<unsigned short>(std::stoi(text.substr(text.find(' ')))), 60,
                          1}; // zone and summer do not matter
         return MRLHelper::getCurrentTime(text, &when), text;
     }},
    {"resolve",
     [](const std::string& mode, int flag) {
         HBLIDOM_Document document;
         MRLHelper::parseXML("<a resolveConnection='before'/>", 31, document);
         HBLIDOM_Element element = document.getDocumentElement();
         MRLHelper::resolveGetParametersConnection(element,
                                                   static_cast<MRLGetParametersMode>(std::stoi(mode)), flag);
         return element.getAttribute("resolveConnection").toUtf8();
     }},
};

TEST(Helpers, DoAsTheirTableSays) {
    std::map<std::string, int> rows;
    for (const auto& row : mrl::test::table("helpers.txt")) {
        EXPECT_EQ(OPERATIONS.at(row[0])(row[1], row.size() > 3 ? std::stoi(row[3]) : -1), row[2])
            << row[0] << " of " << row[1];
        ++rows[row[0]];
    }
    EXPECT_EQ(rows.size(), OPERATIONS.size()) << "each has a row";
}

TEST(Helpers, RefuseNull) {
    HBLByteBuffer out;
    out.append("before");
    MRLHelper::urlEncode(nullptr, 0, out);
    EXPECT_EQ(out.view(), "");
    std::array<char, 4> dest{"xy"};
    EXPECT_EQ(MRLHelper::strSafeCat(nullptr, 4, "a"), 0);
    EXPECT_EQ(MRLHelper::strSafeCat(dest.data(), 4, nullptr), 0);
    EXPECT_STREQ(dest.data(), "xy");
    EXPECT_EQ(MRLHelper::strSafeCopy(dest.data(), 4, nullptr), 0);
    EXPECT_STREQ(dest.data(), "");
    const char* const none = nullptr;
    std::string text;
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"input", [&] { MRLHelper::urlEncode(nullptr, 2, out); }},
        {"pszDest", [] { MRLHelper::strSafeCopy(nullptr, 4, "a"); }},
        {"s1", [] { MRLHelper::wstrcmp(nullptr, wide("").data()); }},
        {"s2", [] { MRLHelper::wstrcmp(wide("").data(), nullptr); }},
        {"buffer", [] { MRLHelper::convertNumToWideChar(1, nullptr); }},
        {"buffer", [] { MRLHelper::convertNumToWideChar(1U, nullptr); }},
        {"strInput != NULL", [&] { MRLHelper::getCrc(none); }},
        {"strInput != NULL", [&] { MRLHelper::getCrc(1, none); }},
        {"strInput != NULL", [&] { MRLHelper::getCrc(1, none, text); }},
    };
    for (const auto& [condition, step] : rows) {
        expectAssert(step, "HBL_ASSERT(" + std::string(condition) + ");");
    }
}

TEST(Checksums, OfAllFormsOfText) { // worked out by another program
    const I18NString text("ab");
    EXPECT_EQ(MRLHelper::getCrc(text), 0xe34542d4U);
    EXPECT_EQ(MRLHelper::getCrc(I18NString("AB"), 0), 0x44dbe8dcU);
    EXPECT_EQ(MRLHelper::getCrc(HBLI18NBuffer(text), 7), 0xe34542d4U);
    EXPECT_EQ(MRLHelper::getCrc(0xcbf43926U, text), 0x0a7f8659U);
    EXPECT_EQ(MRLHelper::getCrc(MRLHelper::getCrc("123"), "456789"), 0xcbf43926U);
    std::string decimal;
    MRLHelper::getCrc("123456789", decimal);
    EXPECT_EQ(decimal, "3421780262");
    MRLHelper::getCrc(7, "", decimal);
    EXPECT_EQ(decimal, "7");
    HBLIDOM_Document document;
    MRLHelper::parseXML("<a  i='1'>x</a>", 15, document);
    EXPECT_EQ(MRLHelper::getCrc(document.getDocumentElement()), 0x53a3c861U) << "<a i=\"1\">x</a>";
}

} // namespace
