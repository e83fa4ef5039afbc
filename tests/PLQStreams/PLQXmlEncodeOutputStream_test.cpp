#include "support/Table.h"

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

TEST(PLQXmlEncodeOutputStream, GivesTheSameHoweverTheTextIsCut) {
    for (const auto& row : mrl::test::table("encoded.txt"))
        for (auto chunk : s_chunks)
            EXPECT_EQ(encoded(row[1], chunk), row[2]) << row[0] << " in pieces of " << chunk;
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

/// Ends in its own way.
class Ending : public ChunkedInput {
public:
    Ending(std::string_view document, std::size_t (*end)())
        : ChunkedInput(document, 4)
        , m_end(end) {}
    using ChunkedInput::read;
    std::size_t read(char* buffer, std::size_t count) override {
        const std::size_t got = ChunkedInput::read(buffer, count);
        return isEnd(got) ? m_end() : got;
    }

private:
    std::size_t (*m_end)();
};

TEST_F(PLQWithXerces, AFailureOfTheInputPassesThroughTheParserAndAnEndOfZeroBytesEndsTheDocument) {
    Ending broken("<a>text",
                  []() -> std::size_t { throw PLQStreamError(ePLQStreamData, "the line is down"); });
    EXPECT_EQ(failureOf([&] { parsed(broken); }), "the line is down");
    Ending whole("<a>x</a>", [] { return std::size_t{0}; });
    EXPECT_EQ(parsed(whole), "x");
}
