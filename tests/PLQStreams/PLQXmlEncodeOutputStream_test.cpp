#include "PLQStreams/PLQStreamInputSource.h"
#include "PLQStreams/PLQXmlEncodeOutputStream.h"
#include "PLQStreams/Streams.h"

#include <gtest/gtest.h>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>

#include <memory>

using testing::Values;

namespace {

std::string encoded(std::string_view text, std::size_t chunk) {
    PLQMemoryOutputStream memory(64, 64);
    {
        PLQXmlEncodeOutputStream out(memory);
        writeInChunks(out, text, chunk);
    }
    return contentOf(memory);
}

class TextCollector : public xercesc::DefaultHandler {
public:
    void characters(const XMLCh* chars, XMLSize_t length) override { text.append(chars, length); }
    void fatalError(const xercesc::SAXParseException& e) override { throw e; }
    std::u16string text;
};

class PLQWithXerces : public testing::Test {
protected:
    static void SetUpTestSuite() { xercesc::XMLPlatformUtils::Initialize(); }
    static void TearDownTestSuite() { xercesc::XMLPlatformUtils::Terminate(); }

    /// The text of the document's only element.
    static std::string parsed(PLQInputStream& in) {
        TextCollector collector;
        std::unique_ptr<xercesc::SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
        reader->setContentHandler(&collector);
        reader->setErrorHandler(&collector);
        reader->parse(PLQStreamInputSource(in, "test input"));
        const xercesc::TranscodeToStr utf8(collector.text.data(), collector.text.size(), "UTF-8");
        return {reinterpret_cast<const char*>(utf8.str()), utf8.length()};
    }
};

} // namespace

#define FFFD "\xEF\xBF\xBD"

struct Encoding {
    const char* name;
    std::string_view text;
    std::string_view xml;
};

class EncodedText : public testing::TestWithParam<Encoding> {};

INSTANTIATE_TEST_SUITE_P(
    Texts, EncodedText,
    Values(Encoding{"markup", "a&b<c>d\"e'f", "a&amp;b&lt;c&gt;d&quot;e&apos;f"},
           Encoding{"nothing to do", "plain text, ]] and ;#13", "plain text, ]] and ;#13"},
           Encoding{"side by side", "&&<<\r\r", "&amp;&amp;&lt;&lt;&#13;&#13;"},
           Encoding{"line ends", "a\r\nb\tc\n", "a&#13;\nb\tc\n"}, Encoding{"empty", "", ""},
           Encoding{"illegal controls", std::string_view("a\0\x01\x08\x0B\x1F\x7F", 7),
                    "a" FFFD FFFD FFFD FFFD FFFD "\x7F"},
           Encoding{"two, three and four bytes", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD",
                    "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD"},
           Encoding{"limits of UTF-8",
                    "\xC2\x80\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
                    "\xC2\x80\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
           Encoding{"no characters of XML", "\xEF\xBF\xBE-\xEF\xBF\xBF", FFFD "-" FFFD},
           Encoding{"another charset", "M\xFCller & S\xF6hne", "M" FFFD "ller &amp; S" FFFD "hne"},
           Encoding{"a lone continuation", "a\x80z", "a" FFFD "z"},
           Encoding{"needless length", "\xC0\xBC\xE0\x80\xBC", FFFD FFFD FFFD FFFD FFFD},
           Encoding{"a surrogate", "\xED\xA0\x80", FFFD FFFD FFFD},
           Encoding{"beyond Unicode", "\xF4\x90\x80\x80", FFFD FFFD FFFD FFFD},
           Encoding{"broken by markup", "\xE2\x82<\xF0\x9F\x98&", FFFD "&lt;" FFFD "&amp;"},
           Encoding{"broken by a character", "\xE2\x82\xC3\xA4", FFFD "\xC3\xA4"},
           Encoding{"cut at the end", "a\xF0\x9F\x98", "a" FFFD}),
    [](const auto& row) {
        std::string name = row.param.name;
        std::erase_if(name, [](char c) { return !isalnum(static_cast<unsigned char>(c)); });
        return name;
    });

TEST_P(EncodedText, IsTheSameHoweverItIsCut) {
    for (auto chunk : s_chunks)
        EXPECT_EQ(encoded(GetParam().text, chunk), GetParam().xml) << chunk;
}

TEST(PLQXmlEncodeOutputStream, WritesARunWhole) {
    class Counter : public PLQOutputStream {
    public:
        void write(const char*, std::size_t) override { ++writes; }
        int writes = 0;
    } counter;
    PLQXmlEncodeOutputStream out(counter);
    const std::string run = std::string(5000, 'x') + "\xE2\x82\xAC";
    const std::string text = run + "&" + run;
    out.write(text.data(), text.size());
    EXPECT_EQ(counter.writes, 3);
}

TEST_F(PLQWithXerces, TextComesBackFromTheParserAsItWas) {
    std::string text = "\t\n\r\r\n<&>\"' ]]> &amp;\x7F";
    for (unsigned c = 0x80; c < 0x3000; ++c) { // U+0085 and U+2028 among them
        if (c < 0x800)
            text += {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 63))};
        else
            text += {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 63)),
                     static_cast<char>(0x80 | (c & 63))};
    }
    for (auto chunk : s_chunks) {
        const std::string document = "<a>" + encoded(text, chunk) + "</a>";
        ChunkedInput in(document, chunk);
        EXPECT_TRUE(parsed(in) == text) << chunk;
    }
}

TEST_F(PLQWithXerces, NoBytesAtAllMakeADocumentIllFormed) {
    const std::string document = "<a>" + encoded(noise(200'000), 4096) + "</a>";
    ChunkedInput in(document, 4096);
    EXPECT_FALSE(parsed(in).empty());
}

TEST_F(PLQWithXerces, AFailureOfTheInputPassesThroughTheParser) {
    class Breaking : public ChunkedInput {
    public:
        Breaking()
            : ChunkedInput("<a>text", 4) {}
        using ChunkedInput::read;
        std::size_t read(char* buffer, std::size_t count) override {
            const std::size_t got = ChunkedInput::read(buffer, count);
            if (isEnd(got))
                throw PLQStreamError(ePLQStreamData, "the line is down");
            return got;
        }
    } in;
    EXPECT_EQ(failureOf([&] { parsed(in); }), "the line is down");
}

TEST_F(PLQWithXerces, AnEndOfZeroBytesEndsTheDocumentToo) {
    class Zero : public ChunkedInput {
    public:
        Zero()
            : ChunkedInput("<a>x</a>", 3) {}
        using ChunkedInput::read;
        std::size_t read(char* buffer, std::size_t count) override {
            const std::size_t got = ChunkedInput::read(buffer, count);
            return isEnd(got) ? 0 : got;
        }
    } in;
    EXPECT_EQ(parsed(in), "x");
}
