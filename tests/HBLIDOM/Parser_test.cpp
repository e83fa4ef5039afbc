// The parser: what it refuses, and why it says so.
#include "support/ChunkedStream.h"
#include "support/Failure.h"
#include "support/Table.h"

#include "HBLIDOM/Documents.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <stdexcept>

using mrl::test::ChunkedStream;
using mrl::test::meant;
using testing::HasSubstr;

namespace {

constexpr HBLIDOM_ParserLimits SMALL = {
    .elementDepth = 4, .attributesOfElement = 3, .totalNodes = 20, .totalBytes = 400};

TEST(Parser, SaysWhyAndWhereItRefusesAndLeavesTheDocumentAsItWas) {
    const std::map<std::string, HBLIDOM_Parser::ErrorCode> codes = {{"malformed", HBLIDOM_Parser::eMalformed},
                                                                    {"type", HBLIDOM_Parser::eDocumentType},
                                                                    {"limit", HBLIDOM_Parser::eLimit}};
    for (const auto& row : mrl::test::table("refused.txt")) {
        for (const std::size_t chunk : {1, 7, 4096}) {
            SCOPED_TRACE(row[0] + " in pieces of " + std::to_string(chunk));
            HBLIDOM_Document document = mrl::test::parsed("<before/>");
            HBLIDOM_Parser parser;
            parser.setLimits(SMALL);
            ChunkedStream stream(row[1], chunk);
            EXPECT_EQ(parser.parse(stream, document), 0);
            EXPECT_EQ(parser.getErrorCode(), codes.at(row[2]));
            EXPECT_THAT(parser.errorString().toUtf8(), HasSubstr(row[3]));
            EXPECT_FALSE(parser.errorString().empty());
            EXPECT_EQ(parser.getCurrentLineNumber(), std::stoi(row[4]));
            EXPECT_EQ(document.getDocumentElement().getTagName(), "before");
        }
    }
}

TEST(Parser, WhatIsJustWithinTheLimitsIsTaken) {
    HBLIDOM_Parser parser;
    parser.setLimits(SMALL);
    for (const std::string& good : {std::string("<a><a><a><a/></a></a><a/><a b='' c='' d=''/></a>"),
                                    meant("<a>{<b c=''/>*9}</a>"), "<a>" + std::string(393, 'x') + "</a>"}) {
        HBLIDOM_Document document;
        EXPECT_EQ(parser.parse(good.data(), good.size(), document), 1) << good;
        EXPECT_EQ(parser.getErrorCode(), HBLIDOM_Parser::eNoError);
        EXPECT_TRUE(parser.errorString().empty());
    }
}

TEST(Parser, ADocumentTypeIsPassedOverOnlyWhenAskedAndNothingIsReadForIt) {
    HBLIDOM_Parser parser(HBLIDOM_Parser::ePassOverDocumentType);
    const auto parse = [&](std::string_view xml) {
        HBLIDOM_Document document;
        return parser.parse(xml.data(), xml.size(), document) == 0 ? std::string()
                                                                   : HBLIDOM_Helper::toString(document);
    };
    EXPECT_EQ(parse("<!DOCTYPE a SYSTEM \"/no/such.dtd\"><a>x</a>"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>x</a>\n");
    EXPECT_EQ(parse("<!DOCTYPE a SYSTEM \"/no/such.dtd\"><a>x&no;y</a>"), "");
    EXPECT_EQ(parser.getErrorCode(), HBLIDOM_Parser::eMalformed);
    EXPECT_EQ(parse("<!DOCTYPE a SYSTEM \"/no/such.dtd\"><a i='x&no;y'/>"), "");
    EXPECT_EQ(parser.getErrorCode(), HBLIDOM_Parser::eMalformed);
    EXPECT_EQ(parse("<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>"), "");
    EXPECT_EQ(parser.getErrorCode(), HBLIDOM_Parser::eDocumentType);
}

TEST(Parser, VeryDeepInputEndsAtTheLimit) {
    const std::string xml = meant("{<a>*50000}");
    HBLIDOM_Parser parser;
    HBLIDOM_Document document;
    EXPECT_EQ(parser.parse(xml.data(), xml.size(), document), 0);
    EXPECT_EQ(parser.getErrorCode(), HBLIDOM_Parser::eLimit);
    EXPECT_THAT(parser.errorString().toUtf8(), HasSubstr("limit of 512"));
}

TEST(Parser, ReadsFilesAndTellsOfOneThatIsMissing) {
    const std::string path = testing::TempDir() + "mrl-hblidom-parser-test.xml";
    std::ofstream(path) << "<a>from a file</a>";
    HBLIDOM_Parser parser;
    HBLIDOM_Document document;
    EXPECT_EQ(parser.parse(path.c_str(), document), 1);
    EXPECT_EQ(HBLIDOM_Helper::getElementText(document.getDocumentElement()), "from a file");
    std::remove(path.c_str());
    EXPECT_EQ(parser.parse(path.c_str(), document), 0);
    EXPECT_EQ(parser.getErrorCode(), HBLIDOM_Parser::eUnreadable);
    EXPECT_THAT(parser.errorString().toUtf8(), HasSubstr(path));
}

TEST(Parser, AStreamsOwnFailureGoesThrough) {
    struct Broken : PLQInputStream {
        using PLQInputStream::read;
        std::size_t read(char*, std::size_t) override { throw std::runtime_error("cable pulled"); }
    } broken;
    HBLIDOM_Document document;
    EXPECT_THROW(HBLIDOM_Parser().parse(broken, document), HBLStdExceptionError);
    expectAssert([&] { HBLIDOM_Parser().parse(nullptr, 0, document); }, "HBL_ASSERT(buffer);");
}

} // namespace
