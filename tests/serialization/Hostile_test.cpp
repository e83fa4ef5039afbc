// Documents made to do harm, and replies that are none: each ends in one clear failure, and the reader is
// as good as new afterwards.
#include "Common/MRLException.h"
#include "Toolkit/MRLContentGetActiveContentManager_Reply.h"
#include "serialization/Envelopes.h"
#include "serialization/MRLReaderLimits.h"
#include "support/Failure.h"
#include "support/Table.h"

#include "HBLCore/HBLFailure.h"

#include <gmock/gmock.h>

#include <chrono>

using mrl::test::Call;
using mrl::test::ChunkedStream;
using mrl::test::chunkSizes;
using mrl::test::envelopeOf;
using mrl::test::placed;
using mrl::test::replyWith;
using testing::HasSubstr;

namespace {

constexpr std::uint32_t MALFORMED = 0xa6441f8b;
constexpr auto TEXT = MRLMessageI::eMRLContentGetActiveContentManager_Request;

std::string repeated(std::string_view piece, std::size_t count) {
    std::string text;
    while (count-- > 0) {
        text += piece;
    }
    return text;
}

/// The parameter of the failure that reading ends in, after which the same reader reads a good reply.
std::string refusalOf(PLQInputStream& stream, const MRLReaderLimits& limits = {}) {
    Call call(TEXT);
    MRLSOAPMessageIDeserializer reader;
    reader.setLimits(limits);
    std::string words;
    try {
        reader.parse(stream, *call.binding, call.reply());
        ADD_FAILURE() << "nothing was thrown";
    } catch (HBLException& e) {
        const auto& message = dynamic_cast<const HBLMessageComponents&>(e.getMessageAt(0));
        EXPECT_EQ(message.getNumber(), MALFORMED) << e.toString();
        EXPECT_THAT(e.getBackTrace(),
                    testing::Contains(HasSubstr("MRLSOAPMessageIDeserializer::parse [HBL_THROW]")));
        words = message.getParameters().at(0).getText().toUtf8();
    }
    const std::string good = replyWith("<r>fine</r>");
    ChunkedStream again(good, 7);
    reader.setLimits({});
    reader.parse(again, *call.binding, call.reply());
    EXPECT_STREQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(), "fine");
    return words;
}

std::string refusalOf(const std::string& document, std::size_t chunk = 4096,
                      const MRLReaderLimits& limits = {}) {
    ChunkedStream stream(document, chunk);
    return refusalOf(stream, limits);
}

TEST(Hostile, AMalformedReplyIsOneClearFailureHoweverTheBytesArrive) {
    for (const auto& row : mrl::test::table("hostile.txt")) {
        for (const std::size_t chunk : chunkSizes) {
            EXPECT_THAT(refusalOf(placed(row[1], row[2]), chunk), HasSubstr(row[3]))
                << row[0] << " in pieces of " << chunk;
        }
    }
    EXPECT_FALSE(refusalOf(replyWith("<r/>") + "<b/>").empty()) << "two roots";
}

TEST(Hostile, ADeclarationHoldsForItsElementAndThoseInside) {
    const char* const documents[] = {
        "<r xmlns='urn:r' i:type='x:string'>a</r>",
        "<b:r xmlns:b='urn:1' xmlns:y='http://www.w3.org/2001/XMLSchema' i:type='y:string'>a</b:r>",
        "<r xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:type='x:string'>a</r>",
    };
    for (const char* const document : documents) {
        Call call(TEXT);
        call.read(replyWith(document), 3);
        EXPECT_STREQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(), "a")
            << document;
    }
    Call call(TEXT); // and no longer
    call.read(envelopeOf("<s:Header xmlns:n='urn:n'><n:x xmlns:n='urn:other'><n:y/></n:x></s:Header>"
                         "<s:Body><r><r xml:space='preserve'>a</r></r></s:Body>"));
    EXPECT_STREQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(), "a");
}

TEST(Hostile, AStreamThatThrowsWhatNobodyKnowsIsAFailureOfItsOwn) {
    struct Stream : ChunkedStream {
        using ChunkedStream::ChunkedStream;
        using ChunkedStream::read;
        std::size_t read(char* /*buffer*/, std::size_t /*count*/) override { throw 42; }
    };
    Call call(TEXT);
    Stream stream("", 1);
    MRLSOAPMessageIDeserializer reader;
    expectFailure([&] { reader.parse(stream, *call.binding, call.reply()); }, 0xa649ba8d, {},
                  "MRLSOAPMessageIDeserializer::parse");
}

TEST(Hostile, ADocumentCutAtEachByteNeverPassesForAWholeOne) {
    const std::string document = replyWith("<r i:type='x:string'>a&amp;b</r>");
    for (std::size_t length = 0; length < document.size(); ++length) {
        Call call(TEXT);
        EXPECT_THROW(call.read(document.substr(0, length), 7), HBLException) << length;
    }
}

struct Limit {
    const char* name;
    MRLReaderLimits limits;
    std::string content; // of an element that no class knows
    const char* words;
};

class LimitedReader : public testing::TestWithParam<Limit> {};

template <class Change>
MRLReaderLimits with(Change change) {
    MRLReaderLimits limits;
    change(limits);
    return limits;
}

INSTANTIATE_TEST_SUITE_P(
    Hostile, LimitedReader,
    testing::Values(
        Limit{"Depth", {}, repeated("<a>", 600), "512 (MRLReaderLimits::elementDepth)"},
        Limit{"DepthOfUnclosedThousands", {}, repeated("<a>", 50000), "512 (MRLReaderLimits::elementDepth)"},
        Limit{"Attributes", with([](auto& l) { l.attributesOfElement = 6; }),
              "<a b='' c='' d='' e='' f='' g='' h=''/>", "6 (MRLReaderLimits::attributesOfElement)"},
        Limit{"Children", with([](auto& l) { l.childrenOfElement = 3; }), "<a/><a/><a/><a/>",
              "3 (MRLReaderLimits::childrenOfElement)"},
        Limit{
            "ArrayItems", with([](auto& l) { l.arrayItems = 3; }),
            "</x><b:tavelHeader><ZOR><roles><item>a</item><item/></roles><roles><item/><item/></roles></ZOR>"
            "</b:tavelHeader><x>",
            "3 (MRLReaderLimits::arrayItems)"},
        Limit{"Text", with([](auto& l) { l.textLength = 100; }), repeated("a", 101),
              "100 (MRLReaderLimits::textLength)"},
        Limit{"TextInPieces", with([](auto& l) { l.textLength = 100; }), repeated("a<!-- -->", 101),
              "100 (MRLReaderLimits::textLength)"},
        Limit{"Elements", with([](auto& l) { l.totalElements = 10; }), repeated("<a/>", 10),
              "10 (MRLReaderLimits::totalElements)"},
        Limit{"Bytes", with([](auto& l) { l.totalBytes = 10000; }), repeated(" ", 10000),
              "10000 (MRLReaderLimits::totalBytes)"},
        Limit{"Markup", with([](auto& l) { l.markupLength = 100000; }),
              "<a b='" + repeated("c", 300000) + "'/>", "100000 (MRLReaderLimits::markupLength)"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(LimitedReader, EndsTheParseAtOnceAndNamesTheLimit) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(refusalOf(placed("header", GetParam().content), 4096, GetParam().limits),
                HasSubstr(GetParam().words));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

TEST(Hostile, LongTextIsNoLongMarkup) {
    MRLReaderLimits limits;
    limits.markupLength = 1024 * 1024;
    Call call(TEXT);
    MRLSOAPMessageIDeserializer reader;
    reader.setLimits(limits);
    const std::string text = repeated("abcdefgh", 400000);
    const std::string document = replyWith("<r>" + text + "</r>");
    ChunkedStream stream(document, 4096);
    reader.parse(stream, *call.binding, call.reply());
    EXPECT_EQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(), text);
}

TEST(Hostile, AReplyWithoutEndIsCutOff) {
    struct Endless : PLQInputStream {
        using PLQInputStream::read;
        std::size_t read(char* buffer, std::size_t count) override {
            const std::string_view piece = m_begun ? "<a></a>" : std::string_view(m_start);
            const std::size_t n = std::min(count, piece.size());
            std::copy_n(piece.data(), n, buffer);
            m_begun = true;
            return n;
        }
        std::string m_start = placed("header", "").substr(0, placed("header", "").find("</x>"));
        bool m_begun = false;
    } endless;
    MRLReaderLimits limits;
    limits.totalBytes = 4 * 1024 * 1024;
    EXPECT_THAT(refusalOf(endless, limits), HasSubstr("4194304 (MRLReaderLimits::totalBytes)"));
}

TEST(Hostile, DefaultsCanBeSetForReadersToCome) {
    const MRLReaderLimits before = MRLReaderLimits::getDefaults();
    MRLReaderLimits::setDefaults(with([](auto& l) { l.elementDepth = 2; }));
    Call call(TEXT);
    EXPECT_THROW(call.read(replyWith("<r/>")), HBLException);
    MRLReaderLimits::setDefaults(before);
    call.read(replyWith("<r/>"));
}

/// Fails after `good` bytes of a document.
struct FailingStream : ChunkedStream {
    FailingStream(std::string_view document, std::size_t good)
        : ChunkedStream(document.substr(0, good), 7) {}
    using ChunkedStream::read;
    std::size_t read(char* buffer, std::size_t count) override {
        const std::size_t n = ChunkedStream::read(buffer, count);
        if (isEnd(n)) {
            HBL_THROW(MRLException(6), "FailingStream::read");
        }
        return n;
    }
};

TEST(Hostile, AConnectionThatBreaksIsReportedAsItself) {
    const std::string document = replyWith("<r>a</r>");
    for (const std::size_t good : {std::size_t{0}, std::size_t{30}, document.size() - 1, document.size()}) {
        Call call(TEXT);
        FailingStream stream(document, good);
        MRLSOAPMessageIDeserializer reader;
        try {
            reader.parse(stream, *call.binding, call.reply());
            ADD_FAILURE() << "nothing was thrown after " << good << " bytes";
        } catch (MRLException& e) {
            EXPECT_EQ(e.getErrorCode(), 6);
            EXPECT_THAT(e.getBackTrace().back(),
                        HasSubstr("MRLSOAPMessageIDeserializer::parse() [HBL_RETHROW]"));
        }
    }
}

} // namespace
