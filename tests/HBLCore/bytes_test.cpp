#include "support/Failure.h"

#include "HBLCore/HBLBase64.h"
#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLUtCrc32.h"
#include "HBLCore/I18NString.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace {

class Buffer : public testing::TestWithParam<HBLByteBuffer> {};

TEST_P(Buffer, KeepsWhatItIsGivenHoweverItGrows) {
    HBLByteBuffer buffer = GetParam();
    EXPECT_STREQ(std::as_const(buffer).str(), "");
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string piece(static_cast<std::size_t>(i % 7), static_cast<char>('a' + i % 26));
        buffer.appendChars(piece.data(), piece.size());
        buffer << '|' << i;
        expected += piece + "|" + std::to_string(i);
    }
    EXPECT_EQ(buffer.view(), expected);
    EXPECT_EQ(std::strlen(buffer.str()), buffer.pcount());
    buffer.chop(2);
    EXPECT_EQ(buffer.view(), expected.substr(2));
    buffer.chop(expected.size());
    EXPECT_STREQ(buffer.str(), "");
}

INSTANTIATE_TEST_SUITE_P(Shapes, Buffer,
                         testing::Values(HBLByteBuffer(), HBLByteBuffer(1, 128, 0),
                                         HBLByteBuffer(1, 256, 256), HBLByteBuffer(1, 0, 1)));

TEST(Buffer, AppendsItsOwnBytes) {
    HBLByteBuffer buffer(1, 4, 1);
    buffer << "abcd";
    buffer.appendChars(buffer.str() + 1, 3);
    buffer << buffer;
    EXPECT_EQ(buffer.view(), "abcdbcdabcdbcd");
    buffer.append(static_cast<const char*>(nullptr));
    buffer.appendChars(nullptr, 5);
    EXPECT_EQ(buffer.pcount(), 14u);
}

TEST(Buffer, ClaimsReservedRoomAndZeroesTheRest) {
    HBLByteBuffer buffer;
    buffer << "ab";
    buffer.reserve(2);
    std::memcpy(buffer.str() + 2, "cd", 2);
    buffer.setLength(4);
    EXPECT_EQ(buffer.view(), "abcd");
    buffer.setLength(100000);
    EXPECT_EQ(buffer.view().substr(0, 4), "abcd");
    EXPECT_EQ(buffer.str()[99999], '\0');
    buffer.setLength(1);
    EXPECT_STREQ(buffer.str(), "a");
}

TEST(Buffer, StaysAsItWasWhenThereIsNoRoom) {
    HBLByteBuffer buffer;
    buffer << "ab";
    EXPECT_THROW(buffer.reserve(std::numeric_limits<std::size_t>::max()), HBLOutOfMemoryError);
    EXPECT_THROW(buffer.reserve(std::numeric_limits<std::size_t>::max() / 2), HBLOutOfMemoryError);
    EXPECT_STREQ(buffer.str(), "ab");
}

TEST(Buffer, IsCopiedAndMovedWithItsBytes) {
    HBLByteBuffer buffer(1, 8, 8);
    buffer << "ab";
    HBLByteBuffer copy = buffer;
    const HBLByteBuffer moved = std::move(buffer);
    copy << "c";
    EXPECT_EQ(moved.view(), "ab");
    EXPECT_EQ(copy.view(), "abc");
    buffer = copy;
    EXPECT_EQ(buffer.view(), "abc");
}

// RFC 4648, section 10.
TEST(Base64, FollowsTheStandard) {
    const char* const rows[][2] = {{"", ""},        {"f", "Zg=="},        {"fo", "Zm8="},
                                   {"foo", "Zm9v"}, {"foob", "Zm9vYg=="}, {"foobar", "Zm9vYmFy"}};
    for (const auto& [data, text] : rows) {
        EXPECT_EQ(HBLBase64Encoded(data), text);
        std::string decoded(std::strlen(text), '\0');
        std::size_t size = 99;
        EXPECT_EQ(HBLBase64Decode(text, decoded.data(), &size), 0);
        EXPECT_EQ(decoded.substr(0, size), data);
    }
}

TEST(Base64, BreaksLinesWithinTheSizeItTells) {
    std::string data(10000, '\xA5');
    for (const int line : {0, 4, 76, 8192, 4 * 1024 * 1024}) {
        std::string text(HBLBase64EncodedSize(data.size(), line), '*');
        HBLBase64Encode(data.data(), data.size(), text.data(), line);
        for (std::size_t i = 0; i < text.size(); ++i)
            ASSERT_EQ(text[i] == '\n', line && (i + 1) % static_cast<std::size_t>(line + 1) == 0) << i;
        std::string back(text.size(), '\0');
        std::size_t size = 0;
        EXPECT_EQ(HBLBase64Decode(text.c_str(), back.data(), &size), 0);
        EXPECT_EQ(back.substr(0, size), data) << line;
    }
    expectAssert([] { HBLBase64EncodedSize(1, 10); }, "HBL_ASSERT(lineLength >= 0 && lineLength % 4 == 0);");
}

TEST(Base64, RefusesWhatIsNot) {
    for (const char* text :
         {"Z", "Zg", "Zg=", "Z===", "====", "Zg==Zg==", "Zg==x", "Zm9%", "Z\xC3\xA9m", "=Zg="}) {
        char room[16];
        std::size_t size = 99;
        EXPECT_NE(HBLBase64Decode(text, room, &size), 0) << text;
        EXPECT_EQ(size, 0u) << text;
    }
    char room[16];
    std::size_t size = 0;
    EXPECT_EQ(HBLBase64Decode(" Zg\r\n=\t=\n", room, &size), 0);
    EXPECT_EQ(size, 1u);
}

// The check value of CRC-32 is that of "123456789".
TEST(Crc32, IsTheStandardOneInAllForms) {
    static_assert(HBLUtCrc32::constant("123456789") == 0xCBF43926u);
    static_assert(HBLUtCrc32::constant("") == 0u);
    EXPECT_EQ(HBLUtCrc32::crc32("123456789", 0), 0xCBF43926u);
    EXPECT_EQ(HBLUtCrc32::crc32(0, "123456789", 9), 0xCBF43926u);
    EXPECT_EQ(HBLUtCrc32::crc32("6789", HBLUtCrc32::crc32("12345", 0)), 0xCBF43926u);
    EXPECT_EQ(HBLUtCrc32::crc32(nullptr, 7), 7u);
    EXPECT_EQ(HBLUtCrc32::crc32(7, nullptr, 3), 7u);
    EXPECT_EQ(HBLUtCrc32::constant("error"), 0x5DDDBC71u);
}

TEST(Crc32, OfATextCoversItsTerminator) {
    const I18NString text("Ab");
    const unsigned expected = HBLUtCrc32::crc32(0, "A\0b\0\0\0", 6);
    EXPECT_EQ(HBLUtCrc32::crc32(text, 0, 0), expected);
    EXPECT_EQ(HBLUtCrc32::crc32(0, text.getExternalBuffer(), text.size()), expected);
    EXPECT_EQ(HBLUtCrc32::crc32(text, 1, 0), HBLUtCrc32::crc32(I18NString("aB"), 1, 0));
    EXPECT_NE(HBLUtCrc32::crc32(text, 1, 0), expected);
}

TEST(Narrowing, RefusesWhatDoesNotFitAndNamesIt) {
    EXPECT_EQ(HBLDowncastSize::int32(std::size_t{2147483647}), 2147483647);
    expectAssert([] { HBLDowncastSize::int32(std::size_t{2147483648}); },
                 "HBLDowncastSize::int32(2147483648) does not fit");
    expectAssert([] { HBLDowncastSize::uint32(-1); }, "HBLDowncastSize::uint32(-1) does not fit");
    EXPECT_EQ(HBLDowncastSize::uint32(4294967295LL), 4294967295u);
}

} // namespace
