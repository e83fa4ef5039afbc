#include "Common/HBLI18NBuffer.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

const unsigned short WIDE[] = {'w', 'i', 0x00E9, 0};
const unsigned short NOTHING[] = {0};

I18NString letters(std::size_t count) {
    return I18NString(std::u16string(count, u'x'));
}

bool isInline(const HBLI18NBuffer& buffer) {
    const auto* const object = reinterpret_cast<const char*>(&buffer);
    const auto* const text = static_cast<const char*>(buffer.getBuffer());
    return text >= object && text < object + sizeof(buffer);
}

TEST(I18NBuffer, AnEmptyOneHasNoSizeAndOneZero) {
    HBLI18NBuffer cleared("x");
    cleared.clear();
    for (const HBLI18NBuffer& buffer :
         {HBLI18NBuffer(), HBLI18NBuffer(I18NString()), HBLI18NBuffer(NOTHING),
          HBLI18NBuffer(static_cast<const unsigned short*>(nullptr)), HBLI18NBuffer(cleared), cleared}) {
        EXPECT_EQ(buffer.getSize(), 0U);
        EXPECT_EQ(buffer.getDataSize(), 0U);
        EXPECT_EQ(*static_cast<const char16_t*>(buffer.getBuffer()), 0);
        EXPECT_EQ(buffer.getCrc(), 0U);
        EXPECT_EQ(buffer.getString(), "");
        EXPECT_EQ(buffer.empty(), 1);
        EXPECT_TRUE(buffer == I18NString());
        EXPECT_FALSE(buffer != I18NString());
    }
}

TEST(I18NBuffer, HoldsFifteenCharactersInline) {
    for (const std::size_t count : {1U, 15U, 16U, 1000U}) {
        HBLI18NBuffer buffer{letters(count)};
        EXPECT_EQ(buffer.getSize(), (count + 1) * 2) << count;
        EXPECT_EQ(isInline(buffer), count <= 15) << count;
        const HBLI18NBuffer copy(buffer);
        buffer = WIDE; // room that is enough stays
        EXPECT_EQ(isInline(buffer), count <= 15) << count;
        EXPECT_EQ(buffer.getString(), I18NString(u"wi\u00E9"));
        EXPECT_EQ(copy.getString(), letters(count));
        buffer = copy;
        EXPECT_TRUE(buffer == copy) << "equal whatever the capacity";
    }
}

TEST(I18NBuffer, AppendsAcrossTheInlineLimitAndItself) {
    for (const std::size_t before : {0U, 1U, 14U, 15U, 16U, 40U}) {
        for (const std::size_t more : {0U, 1U, 15U, 16U, 100U}) {
            HBLI18NBuffer buffer{letters(before)};
            buffer += letters(more);
            EXPECT_EQ(buffer.getString(), letters(before + more)) << before << " + " << more;
            buffer += HBLI18NBuffer(WIDE);
            buffer += WIDE;
            EXPECT_EQ(buffer.getString(), letters(before + more) + I18NString(u"wi\u00E9wi\u00E9"));
            const I18NString once = buffer.getString();
            buffer += buffer;
            EXPECT_EQ(buffer.getString(), once + once);
        }
    }
    HBLI18NBuffer reserved;
    reserved.reserve(100);
    reserved.reserve(1000); // there is room already
    reserved = "ab";
    EXPECT_FALSE(isInline(reserved));
    reserved += "c"; // just the needed size
    EXPECT_TRUE(isInline(reserved));
    EXPECT_EQ(reserved.getString(), "abc");
}

TEST(I18NBuffer, ChecksumsGoByBytesAndAreKept) {
    // The CRC-32 of the UTF-16 bytes and two zeros; the second with the bytes 41 to 5a as 61 to 7a.
    EXPECT_EQ(HBLI18NBuffer("Arial").getCrc(), 0x5f534781U);
    EXPECT_EQ(HBLI18NBuffer("ARIAL").getCrc(), 0x4ee68c0fU);
    EXPECT_EQ(HBLI18NBuffer("arial").getCrc(), 0x47629c79U);
    for (const char* name : {"Arial", "ARIAL", "arial"}) {
        EXPECT_EQ(HBLI18NBuffer(name).getCssCrc(), 0x47629c79U);
    }
    EXPECT_EQ(HBLI18NBuffer(u"\u4100").getCssCrc(), 0x68517e0bU) << "the high byte is taken for a letter";

    HBLI18NBuffer cut("Arial");
    EXPECT_TRUE(cut == 0x5f534781U);
    cut.truncate(5); // no longer than that already
    EXPECT_EQ(cut.getString(), "Arial");
    cut.truncate(2);
    EXPECT_EQ(cut.getString(), "Ar");
    cut += "";
    EXPECT_EQ(cut.getCrc(), 0x5f534781U) << "an empty right side leaves what is kept";
    cut += "ial";
    EXPECT_FALSE(cut != 0x5f534781U);
}

TEST(I18NBuffer, CutToNothingIsNotEmpty) {
    HBLI18NBuffer buffer("abc");
    buffer.truncate(0);
    EXPECT_EQ(buffer.getSize(), 2U);
    EXPECT_EQ(buffer.getDataSize(), 0U);
    EXPECT_EQ(buffer.empty(), 0);
    EXPECT_FALSE(buffer == HBLI18NBuffer());
    buffer += "d";
    EXPECT_EQ(buffer.getString(), "d");
}

TEST(I18NBuffer, ComparesBeginningsAndEnds) {
    const struct {
        const char* text;
        const char* other;
        int starts;
        int ends;
    } rows[] = {
        {"abc", "ab", 1, 0}, {"abc", "bc", 0, 1}, {"abc", "abc", 1, 1}, {"abc", "abcd", 0, 0},
        {"abc", "b", 0, 0},  {"abc", "", 0, 0},   {"", "a", 0, 0},      {"", "", 0, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(HBLI18NBuffer(row.text).startsWith(I18NString(row.other)), row.starts)
            << row.text << " " << row.other;
        EXPECT_EQ(HBLI18NBuffer(row.text).endsWith(I18NString(row.other)), row.ends)
            << row.text << " " << row.other;
    }
}

TEST(I18NBuffer, ComparesWithTextAndIsPrintedAsUtf8) {
    HBLI18NBuffer buffer(WIDE);
    EXPECT_TRUE(buffer == I18NString(u"wi\u00E9"));
    EXPECT_TRUE(buffer != I18NString("wi"));
    EXPECT_TRUE(buffer != HBLI18NBuffer("wie"));
    std::ostringstream out;
    out << buffer << static_cast<const HBLI18NBuffer&>(buffer);
    EXPECT_EQ(out.str(), "wi\xc3\xa9wi\xc3\xa9");
}

} // namespace
