#include "I18NRes/MRLI18NRes.h"

#include "HBLCore/HBLResetableResourceRegistry.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

TEST(FixedTexts, StandAtTheirIndexes) {
    const struct {
        unsigned index;
        std::string_view text;
    } rows[] = {
        {MRLI18NRes::eSoapEncodingNamespace, "http://schemas.xmlsoap.org/soap/encoding/"},
        {MRLI18NRes::eBusPrefix, "bus:"},
        {MRLI18NRes::eXsiNil, "xsi:nil"},
        {MRLI18NRes::eBusNamespace, "http://developer.vantor.example/schemas/tavel/3/"},
        {MRLI18NRes::eEmpty, ""},
        {MRLI18NRes::eBlank, " "},
        {MRLI18NRes::eItemClose, "]]></item>"},
        {MRLI18NRes::ePerfMRL, "Perf.MRL"},
        {MRLI18NRes::eXsdString, "xsd:string"},
        {MRLI18NRes::eSdk, "sdk"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(MRLI18NRes::getChar(row.index), row.text);
        EXPECT_EQ(MRLI18NRes::getString(row.index).toUtf8(), row.text);
    }
}

TEST(FixedTexts, AreAllThere) {
    for (unsigned i = 0; i < MRLI18NRes::s_count; ++i)
        EXPECT_NE(MRLI18NRes::getChar(i), nullptr) << i;
}

TEST(FixedTexts, GiveThePiecesOfAnXPath) {
    const std::u16string_view expected[] = {u"./", u"/", u"[", u"]"};
    for (unsigned i = 0; i < 4; ++i)
        EXPECT_EQ(MRLI18NRes::getXPathPiece(i), expected[i]);
}

TEST(FixedTexts, AreMadeOnceAndAnewAfterAReset) {
    const I18NString* first = &MRLI18NRes::getString(MRLI18NRes::eDetail);
    EXPECT_EQ(first, &MRLI18NRes::getString(MRLI18NRes::eDetail));
    HBLResetableResourceRegistry::getInstance().resetAll();
    EXPECT_EQ(MRLI18NRes::getString(MRLI18NRes::eDetail).toUtf8(), "detail");
}

} // namespace
