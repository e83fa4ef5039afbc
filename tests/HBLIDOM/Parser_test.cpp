// The parser: what it refuses, and why it says so.
#include "support/Failure.h"

#include "HBLIDOM/Documents.h"
#include "PLQStreams/PLQMemoryInputStream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

using testing::HasSubstr;

namespace {

std::string repeated(std::string_view piece, int count) {
    std::string text;
    for (; count > 0; --count) {
        text += piece;
    }
    return text;
}

/// Gives a document in pieces of at most `chunk` bytes.
class ChunkedStream : public PLQMemoryInputStream {
public:
    ChunkedStream(std::string_view document, std::size_t chunk)
        : PLQMemoryInputStream(document.data(), document.size())
        , m_chunk(chunk) {}
    using PLQMemoryInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override {
        return PLQMemoryInputStream::read(buffer, std::min(count, m_chunk));
    }

private:
    std::size_t m_chunk;
};

constexpr HBLIDOM_ParserLimits SMALL = {
    .elementDepth = 4, .attributesOfElement = 3, .totalNodes = 20, .totalBytes = 400};

struct Refused {
    const char* name;
    std::string document;
    HBLIDOM_Parser::ErrorCode code;
    const char* words;
    int line;
};

class RefusedDocument : public testing::TestWithParam<Refused> {};

INSTANTIATE_TEST_SUITE_P(
    Parser, RefusedDocument,
    testing::Values(
        Refused{"Nothing", "", HBLIDOM_Parser::eMalformed, "", 1},
        Refused{"NoXml", "hello", HBLIDOM_Parser::eMalformed, "", 1},
        Refused{"AnEndOfAnotherElement", "<a>\n<b>\n</a>", HBLIDOM_Parser::eMalformed, "'b'", 3},
        Refused{"CutOff", "<a><b>", HBLIDOM_Parser::eMalformed, "", 1},
        Refused{"TwoRoots", "<a/><b/>", HBLIDOM_Parser::eMalformed, "", 1},
        Refused{"AnUndeclaredPrefix", "<p:a/>", HBLIDOM_Parser::eMalformed, "'p'", 1},
        Refused{"AnUnknownEntity", "<a>&no;</a>", HBLIDOM_Parser::eMalformed, "'no'", 1},
        Refused{"BytesThatAreNotUtf8", "<a>\xC3(</a>", HBLIDOM_Parser::eMalformed, "", 1},
        Refused{"ABareDocumentType", "<!DOCTYPE a><a/>", HBLIDOM_Parser::eDocumentType, "of \"a\"", 1},
        Refused{"AnExternalDocumentType", "<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>",
                HBLIDOM_Parser::eDocumentType, "document type", 1},
        Refused{"AnExternalEntity", "<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>&e;</a>",
                HBLIDOM_Parser::eDocumentType, "document type", 1},
        Refused{"AnEntity", "\n<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>", HBLIDOM_Parser::eDocumentType,
                "document type", 2},
        Refused{"TooDeep", "<a><a><a><a>\n<a/></a></a></a></a>", HBLIDOM_Parser::eLimit, "elementDepth", 2},
        Refused{"TooManyAttributes", "<a b='' c='' d='' e=''/>", HBLIDOM_Parser::eLimit,
                "attributesOfElement", 1},
        Refused{"TooManyNodes", "<a>" + repeated("<b c=''/>", 10) + "</a>", HBLIDOM_Parser::eLimit,
                "totalNodes", 1},
        Refused{"TooManyComments", "<a>" + repeated("<!---->", 20) + "</a>", HBLIDOM_Parser::eLimit,
                "totalNodes", 1},
        Refused{"TooLong", "<a>" + std::string(400, 'x') + "</a>", HBLIDOM_Parser::eLimit,
                "limit of 400 (HBLIDOM_ParserLimits::totalBytes)", 1}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(RefusedDocument, SaysWhyAndWhereAndLeavesTheDocumentAsItWas) {
    const Refused& row = GetParam();
    for (const std::size_t chunk : {1, 7, 4096}) {
        HBLIDOM_Document document = mrl::test::parsed("<before/>");
        HBLIDOM_Parser parser;
        parser.setLimits(SMALL);
        ChunkedStream stream(row.document, chunk);
        EXPECT_EQ(parser.parse(stream, document), 0);
        EXPECT_EQ(parser.getErrorCode(), row.code);
        EXPECT_THAT(parser.errorString().toUtf8(), HasSubstr(row.words));
        EXPECT_FALSE(parser.errorString().empty());
        EXPECT_EQ(parser.getCurrentLineNumber(), row.line);
        EXPECT_EQ(document.getDocumentElement().getTagName(), "before");
    }
}

TEST(Parser, WhatIsJustWithinTheLimitsIsTaken) {
    HBLIDOM_Parser parser;
    parser.setLimits(SMALL);
    for (const std::string& good :
         {std::string("<a><a><a><a/></a></a><a/><a b='' c='' d=''/></a>"),
          "<a>" + repeated("<b c=''/>", 9) + "</a>", "<a>" + std::string(393, 'x') + "</a>"}) {
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
    const std::string xml = repeated("<a>", mrl::test::veryDeep);
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
