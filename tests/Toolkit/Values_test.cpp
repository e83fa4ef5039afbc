// The values outside the generated families.

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLUnknownSchemaType.h"
#include "Toolkit/MRLZOR_Unsupported.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_Streamable.h"
#include "Toolkit/MRL_String.h"
#include "support/Failure.h"

#include "HBLCore/HBLSmartPointer.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <cstring>
#include <string>

namespace {

class TextStream : public MRL_Streamable {
public:
    explicit TextStream(std::string text)
        : m_text(std::move(text)) {}
    using MRL_Streamable::read;
    std::size_t read(char*, std::size_t) override { return endOfStream; }
    void operator>>(PLQOutputStream& out) const override { out.write(m_text.data(), m_text.size()); }
    std::int64_t seek(std::int64_t, eMRL_Streamable_Seek) override { return -1; }

private:
    std::string m_text;
};

template <class Write>
std::string written(Write write) {
    PLQMemoryOutputStream out(16, 16);
    write(out);
    return {out.bytes(), out.length()};
}

std::string serialized(const MRLBase64Binary& value) {
    return written([&](PLQOutputStream& out) { value.serialize(out); });
}

std::string contents(const MRLBase64Binary& value) {
    return value.str() == nullptr ? std::string() : std::string(value.str(), value.pcount());
}

TEST(String, IsTrimmedOfWhiteSpaceBytesAtBothEnds) {
    const struct {
        const char* text;
        const char* trimmed;
    } rows[] = {{"  a b \n", "a b"},  {"   ", ""}, {"", ""},
                {"\t\v\f\r\nx", "x"}, {"x", "x"},  {"\xC2\xA0", "\xC2\xA0"}};
    for (const auto& row : rows) {
        MRL_String string;
        string.appendChars(row.text, std::strlen(row.text));
        string.trim();
        EXPECT_STREQ(string.str(), row.trimmed);
        EXPECT_EQ(string.pcount(), std::strlen(row.trimmed));
    }
}

TEST(Binary, IsOwnedBorrowedOrStreamed) {
    MRLBase64Binary value("abcd", 2);
    EXPECT_EQ(contents(value), "ab");
    value.append("cdef", 0);
    EXPECT_EQ(contents(value), "abcdef");

    const char borrowed[] = "borrowed";
    value.reference(borrowed, 0);
    EXPECT_EQ(value.str(), borrowed);
    EXPECT_EQ(value.pcount(), 8u);
    EXPECT_THROW(value.append("x", 1), HBLAssertError);
    EXPECT_EQ(contents(value), "borrowed");

    const TextStream stream("streamed");
    value.reference(stream);
    EXPECT_EQ(value.streamable(), &stream);
    EXPECT_EQ(value.pcount(), static_cast<std::size_t>(-1));
    EXPECT_EQ(value.str(), nullptr);

    value.append("anew", 4);
    EXPECT_EQ(contents(value), "anew");
    value.reference(nullptr, 0);
    EXPECT_EQ(value.pcount(), 0u);
}

TEST(Binary, GrowsAndTakesItsOwnBytesAndNothing) {
    MRLBase64Binary value;
    std::string expected;
    for (int i = 0; i < 200; ++i) {
        const std::string piece(static_cast<std::size_t>(i % 7), static_cast<char>('a' + i % 26));
        value.append(piece.c_str(), 0); // empty pieces among them
        expected += piece;
    }
    EXPECT_EQ(contents(value), expected);
    value.append(value.str(), value.pcount());
    EXPECT_EQ(contents(value), expected + expected);
    expectAssert([&] { value.append(nullptr, 1); }, "HBL_ASSERT(data);");
}

TEST(Binary, IsWrittenByItsState) {
    const TextStream stream("abc");
    MRLBase64Binary value;
    EXPECT_EQ(serialized(value), "");
    value.append("abc", 3);
    EXPECT_EQ(serialized(value), "YWJj");
    value.append("d", 1);
    EXPECT_EQ(serialized(value), "YWJjZA==");
    value.setIsContentId(1);
    EXPECT_EQ(serialized(value), "abcd");
    value.reference(stream);
    EXPECT_EQ(serialized(value), "YWJj") << "a streamed value is encoded whatever it stands for";
}

TEST(Binary, IsComparedByItsBytes) {
    const MRLBase64Binary abc("abc", 3);
    MRLBase64Binary same("abc", 3);
    same.setIsContentId(1);
    EXPECT_TRUE(abc == same);
    EXPECT_TRUE(abc != MRLBase64Binary("abd", 3));
    EXPECT_TRUE(abc != MRLBase64Binary("abcd", 4));
    EXPECT_TRUE(MRLBase64Binary() == MRLBase64Binary());

    const TextStream stream("abc");
    MRLBase64Binary streamed;
    streamed.reference(stream);
    EXPECT_TRUE(streamed == streamed);
    EXPECT_TRUE(streamed != abc);
    expectAssert([&] { static_cast<void>(streamed == MRLBase64Binary()); }, "HBL_ASSERT(!m_streamable);");
}

TEST(CharStreamable, IsToldFromText) {
    MRL_CharStreamable value;
    EXPECT_TRUE(MRL_CharStreamable::isCharStreamable(value.asCharStar()));
    value.setIsContentId(1);
    EXPECT_TRUE(MRL_CharStreamable::isCharStreamable(value.asCharStar()));
    EXPECT_EQ(value.getIsContentId(), 1);
    for (const char* text : {"abc", "", "\xFF", "\xFF\xFF\xFF\x01", "\xFF\xFF"})
        EXPECT_FALSE(MRL_CharStreamable::isCharStreamable(text));
    EXPECT_FALSE(MRL_CharStreamable::isCharStreamable(nullptr));
    expectAssert([] { MRL_CharStreamable("text"); }, "HBL_ASSERT(MRL_CharStreamable::isCharStreamable(c));");
}

TEST(CharStreamable, IsGivenItsDataOnce) {
    MRL_CharStreamable value;
    expectAssert([&] { value.initialize(nullptr, 0); }, "HBL_ASSERT(data);");
    value.initialize("a", 0);
    expectAssert([&] { value.initialize("b", 0); }, "HBL_ASSERT(!m_streamable && !m_data);");
    const TextStream stream("s");
    expectAssert([&] { value.initialize(stream, 0); }, "HBL_ASSERT(!m_streamable && !m_data);");
}

TEST(CharStreamable, WritesTheWholeChainAsItsFirstPieceSays) {
    const TextStream stream("stream,");
    for (const int base64 : {0, 1}) {
        MRL_CharStreamable first;
        MRL_CharStreamable second;
        MRL_CharStreamable third;
        first.initialize("first,", base64);
        second.initialize(stream, 1 - base64);
        third.initialize("third", 0);
        first.append(second);
        first.append(third);
        const MRL_CharStreamable copy(first.asCharStar());
        EXPECT_EQ(written([&](PLQOutputStream& out) { copy >> out; }),
                  base64 != 0 ? "Zmlyc3Qsc3RyZWFtLHRoaXJk" : "first,stream,third");
    }
}

TEST(UnknownType, HasANameAndNothingElse) {
    MRLUnknownSchemaType value("mystery");
    MRL_String text;
    std::vector<const char*> names;
    value.getChildObjectNames(names, true);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(value.getGeneratedObjectName(), "mystery");
    EXPECT_EQ(value.getChildObject("mystery", 1), nullptr);
    EXPECT_EQ(value.getChildType("mystery"), MRLSchemaTypeI::e_Unknown);
    EXPECT_EQ(value.setChildObject("mystery", &text, MRLSchemaTypeI::eString, nullptr), 0u);
    EXPECT_TRUE(value.isa(MRLSchemaTypeI::e_Unknown));
    EXPECT_FALSE(value.isa(MRLSchemaTypeI::eMRLNameValue));
    EXPECT_FALSE(value == MRLUnknownSchemaType("mystery"));
    EXPECT_TRUE(value == value);
}

TEST(UnsupportedCredential, StandsBesideTheMembersOfItsElement) {
    HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistry::create());
    const MRLZOR source;
    std::vector<const char*> inherited;
    source.getChildObjectNames(inherited, true);

    MRLZOR_Unsupported value(source, *registry);
    EXPECT_EQ(value.getZORCredential(), nullptr);
    MRL_String text;
    text.append("secret");
    EXPECT_EQ(value.setChildObject("ZORCredential", &text, MRLSchemaTypeI::eString, nullptr), 0u);
    EXPECT_EQ(value.getZORCredential(), text.str());
    EXPECT_EQ(value.getChildObject("ZORCredential", 0), text.str());
    EXPECT_EQ(value.getChildType("ZORCredential"), MRLSchemaTypeI::eString);
    expectFailure([&] { value.setChildObject("ZORCredential", &text, MRLSchemaTypeI::eInt, nullptr); },
                  0xA647C21F, {"ZOR", "ZORCredential", "xs:string", "xs:int"});

    std::vector<const char*> names;
    value.getChildObjectNames(names, true);
    EXPECT_EQ(names.size(), inherited.size() + 1);
    EXPECT_STREQ(names.back(), "ZORCredential");

    EXPECT_TRUE(value.isa(MRLSchemaTypeI::eMRLZOR_Unsupported));
    EXPECT_TRUE(value.isa(MRLSchemaTypeI::eMRLZOR));

    const MRLZOR_Unsupported copy(value, *registry);
    EXPECT_STREQ(copy.getZORCredential(), "secret");
    EXPECT_NE(copy.getZORCredential(), text.str());
    EXPECT_TRUE(copy == value);
}

} // namespace
