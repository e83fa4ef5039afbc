// What comes in: the levels of an envelope, the values in it, and every way in which it is refused.
#include "Toolkit/MRLAccount.h"
#include "Toolkit/MRLAuthenticationHavePassportsExpired_Reply.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBooleanArray.h"
#include "Toolkit/MRLContentDelete_Reply.h"
#include "Toolkit/MRLContentGetActiveContentManager_Reply.h"
#include "Toolkit/MRLContentQueryTenantMembership_Reply.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLJobServicePortType.h"
#include "Toolkit/MRLQueryOptions.h"
#include "Toolkit/MRLQueryServicePortType.h"
#include "Toolkit/MRLReport.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLTokenProp.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "Toolkit/MRLZOR_Unsupported.h"
#include "serialization/Envelopes.h"
#include "serialization/MRLSOAPMessageISerializer.h"
#include "serialization/MRL_AttachmentHandler.h"
#include "support/Failure.h"
#include "support/Table.h"

#include <gmock/gmock.h>

using mrl::test::Call;
using mrl::test::ChunkedStream;
using mrl::test::chunkSizes;
using mrl::test::envelopeOf;
using mrl::test::golden;
using mrl::test::replyWith;

namespace {

using Request = MRLMessageI;

MRLBaseClassArray& resultOf(Call& call) {
    MRLBaseClassArray* const result = static_cast<MRLContentQuery_Reply&>(call.reply()).getResult();
    EXPECT_NE(result, nullptr);
    return *result;
}

MRLReport& reportIn(Call& call) {
    EXPECT_EQ(resultOf(call).size(), 1U);
    return static_cast<MRLReport&>(*resultOf(call).at(0));
}

/// The reply of a query with one report that has `members`.
std::string reportWith(std::string_view members) {
    return replyWith(R"(<q i:type="enc:Array" enc:arrayType="b:baseClass[1]"><item i:type="b:report">)" +
                     std::string(members) + "</item></q>");
}

// --- what is refused --------------------------------------------------------------------------------

constexpr auto COUNT = Request::eMRLContentDelete_Request;                 // gives an int
constexpr auto TEXT = Request::eMRLContentGetActiveContentManager_Request; // gives a string

HBLSmartPointer<MRLPortTypeBinding> bound(const std::string& operation) {
    const MRLPortTypeI& contents = MRLContentManagerServicePortType::getInstance();
    return operation == "getCubeMetrics"
               ? MRLQueryServicePortType::getInstance().createPortTypeBinding(
                     Request::eMRLRolapCubeAdministrationGetCubeMetrics_Request)
               : contents.createPortTypeBinding(operation == "delete" ? COUNT
                                                                      : Request::eMRLContentQuery_Request);
}

TEST(Reader, EndsARefusedReplyInItsOwnFailureHoweverTheBytesArrive) {
    for (const auto& row : mrl::test::plainTable("refused_replies.txt")) {
        const std::string document =
            row[1] == "report" ? reportWith(row[2]) : mrl::test::placed(row[1], row[2]);
        const auto number = static_cast<std::uint32_t>(std::stoul(row[3], nullptr, 16));
        for (const std::size_t chunk : chunkSizes) {
            SCOPED_TRACE(row[0] + " in pieces of " + std::to_string(chunk));
            const auto binding = bound(row.size() > 6 ? row[6] : "query");
            ChunkedStream stream(document, chunk);
            MRLSOAPMessageIDeserializer reader;
            MRL_AttachmentHandler attachments;
            reader.setAttachmentHandler(&attachments);
            expectFailure([&] { reader.parse(stream, *binding, binding->getOutputMessage()); }, number,
                          mrl::test::split(row[4], " | "), row[5]);
        }
    }
}

struct Asserted {
    const char* name;
    std::string document;
    const char* text;
};

class AssertedReply : public testing::TestWithParam<Asserted> {};

INSTANTIATE_TEST_SUITE_P(
    Reader, AssertedReply,
    testing::Values(
        Asserted{"TypeOfEndlessLength", replyWith("<q i:type='b:" + std::string(300, 'a') + "'/>"),
                 "HBL_ASSERT_NAMED(type.size() < NAME_LIMIT, \"The default buffer size needs to be "
                 "increased.\");"},
        Asserted{"ArrayTypeOfEndlessLength",
                 replyWith("<q i:type='enc:Array' enc:arrayType='b:" + std::string(300, 'a') + "[1]'/>"),
                 "HBL_ASSERT_NAMED(name.size() < NAME_LIMIT, \"The default buffer size needs to be "
                 "increased.\");"},
        Asserted{"TypeBeginsWithColon", replyWith("<q i:type=':a'/>"), "HBL_ASSERT(colonPos > 0);"},
        Asserted{"UnknownParameterWithoutType", replyWith("<q i:nil='true'/><more/>"),
                 "HBL_ASSERT(m_objStack.size() > 0);"},
        Asserted{
            "ReferenceWithoutAHandler", reportWith("<defaultName><value href='cid:p1'/></defaultName>"),
            "HBL_ASSERT_NAMED(m_attachmentHandler, \"MRLSchemaTypeIContentHandler::endElement - Handler not "
            "configured to process href attachments. \");"},
        Asserted{
            "OwnTextReferenceWithoutAHandler",
            reportWith("<objectClass><value href='cid:p1'/></objectClass>"),
            "HBL_ASSERT_NAMED(m_attachmentHandler, \"MRLSchemaTypeIContentHandler::setCurrentCharacterData - "
            "Handler not configured to process href attachments. \");"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(AssertedReply, FailsItsAssertion) {
    Call call;
    expectAssert([&] { call.read(GetParam().document); }, GetParam().text);
}

// --- what is read -----------------------------------------------------------------------------------

TEST(Reader, DerivedClassesAreReadAsThemselves) {
    Call call;
    call.read(golden("query_reply.xml"));
    MRLBaseClassArray& result = resultOf(call);
    ASSERT_EQ(result.size(), 3U);
    EXPECT_EQ(result.at(0)->getObjectType(), MRLSchemaTypeI::eMRLReport);
    EXPECT_EQ(result.at(2)->getObjectType(), MRLSchemaTypeI::eMRLAccount);
    EXPECT_STREQ(result.at(0)->getDefaultName()->getValue(), "Ums\u00e4tze <2024> \U0001F4C8");
}

TEST(Reader, EncodingsOtherThanUtf8AreRead) {
    Call call;
    std::string document = reportWith("<defaultName><value>\xE4</value></defaultName>");
    document.replace(0, 21, R"(<?xml version="1.0" encoding="ISO-8859-1"?>)");
    call.read(document);
    EXPECT_STREQ(reportIn(call).getDefaultName()->getValue(), "\u00e4");

    const std::string ascii = reportWith("<defaultName><value>w</value></defaultName>");
    for (std::string wide : {"", "\xFF\xFE"}) { // the byte order may be told by the declaration alone
        for (const char c : ascii) {
            wide += c;
            wide += '\0';
        }
        Call other;
        other.read(wide);
        EXPECT_STREQ(reportIn(other).getDefaultName()->getValue(), "w");
    }
}

TEST(Reader, UnknownElementsAreSkippedWithAllTheyHold) {
    Call call;
    call.read(reportWith("<newer href='cid:x' i:type='b:newerType'><defaultName>x</defaultName><a/></newer>"
                         "<newest i:nil='true'/><defaultName><value>kept</value></defaultName>"));
    EXPECT_STREQ(reportIn(call).getDefaultName()->getValue(), "kept");
}

TEST(Reader, TypesAreTakenFromTheirPlaceWhenTheElementDoesNotTell) {
    Call call;
    call.read(replyWith("<q><item i:type='b:account'><searchPath><value>/a</value></searchPath></item></q>"));
    EXPECT_STREQ(resultOf(call).at(0)->getSearchPath()->getValue(), "/a");
}

TEST(Reader, AnArrayTypeOfAnotherNamespaceCountsForNothingAndSizesAreNotBelieved) {
    Call call(Request::eMRLContentQueryTenantMembership_Request);
    call.read(replyWith("<q i:type='enc:Array' enc:arrayType='x:string[" + std::string(300, '4') +
                        "]'>"
                        "<item i:type='x:string'>a</item><item>b</item></q>"));
    MRLStringArray& result = *static_cast<MRLContentQueryTenantMembership_Reply&>(call.reply()).getResult();
    ASSERT_EQ(result.size(), 2U);
    EXPECT_STREQ(result.at(1), "b");
}

TEST(Reader, SimpleItemsAreCompleteWhenTheyEnterTheirArray) {
    Call call(Request::eMRLAuthenticationHavePassportsExpired_Request);
    call.read(replyWith("<q><item>1</item><item>TRUE</item><item> false </item></q>"));
    MRLBooleanArray& result =
        *static_cast<MRLAuthenticationHavePassportsExpired_Reply&>(call.reply()).getResult();
    EXPECT_THAT(std::vector<int>(result.begin(), result.end()), testing::ElementsAre(1, 1, 0));
}

TEST(Reader, NumbersFollowTheirLenientRules) {
    for (const auto& [text, expected] : std::vector<std::pair<const char*, int>>{
             {"-12", -12}, {" 7\n", 7}, {"1 2", 1}, {"", 0}, {"+3", 3}}) {
        Call call(COUNT);
        call.read(replyWith("<anyName>" + std::string(text) + "</anyName>"));
        const int* const result = static_cast<MRLContentDelete_Reply&>(call.reply()).getResult();
        ASSERT_NE(result, nullptr) << text;
        EXPECT_EQ(*result, expected) << text;
    }
}

TEST(Reader, AnEmptyTextIsATextAndANilOneIsNone) {
    Call call(TEXT);
    call.read(replyWith("<r/>"));
    EXPECT_STREQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(), "");
    call.read(replyWith("<r i:type='x:string' i:nil='true'/>"));
    EXPECT_EQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(), nullptr);
}

TEST(Reader, ANilNumberAndANilObjectAreAbsent) {
    Call count(COUNT);
    count.read(replyWith("<n>1</n>"));
    count.read(replyWith("<n i:nil='true'/>"));
    EXPECT_EQ(static_cast<MRLContentDelete_Reply&>(count.reply()).getResult(), nullptr);
    Call call;
    call.read(replyWith("<q i:nil='true'/>"));
    EXPECT_EQ(static_cast<MRLContentQuery_Reply&>(call.reply()).getResult(), nullptr);
}

TEST(Reader, TextKeepsItsBlanksEntitiesAndCData) {
    Call call(TEXT);
    call.read(replyWith("<r> a&amp;b<![CDATA[<c>]]>&#x1F4C8;<!-- no --> </r>"));
    EXPECT_STREQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(),
                 " a&b<c>\U0001F4C8 ");
}

TEST(Reader, AVeryLongTextOfPairsArrivesWhole) {
    std::string text = "x"; // an odd number of units in front, so that the parser cuts within a pair
    std::string expected = text;
    for (int i = 0; i < 100000; ++i) {
        text += "\U0001F4C8";
    }
    Call call(TEXT);
    call.read(replyWith("<r>" + text + "</r>"));
    EXPECT_EQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(), text);
}

// --- header -----------------------------------------------------------------------------------------

TEST(Reader, TheHeaderIsReadAroundWhatWasMisunderstood) {
    const std::string document = envelopeOf(
        "<s:Header><b:Misunderstood><Misunderstood/><a><b/></a></b:Misunderstood>"
        "<other>text</other>"
        "<b:tavelHeader><ZOR><ZORPassport><id>p</id></ZORPassport>"
        "<securityBlob>IFlX\nSmo=</securityBlob></ZOR></b:tavelHeader></s:Header><s:Body><r/></s:Body>");
    Call call;
    call.read(document);
    MRLTavelHeader* const header = call.reply().getTavelHeader(nullptr);
    ASSERT_NE(header, nullptr);
    EXPECT_STREQ(header->getZOR()->getZORPassport()->getId(), "p");
    const MRLBase64Binary& blob = *header->getZOR()->getSecurityBlob();
    EXPECT_EQ(std::string(blob.str(), blob.pcount()), " YWJj");
}

TEST(Reader, WithoutAHeaderTheMessageHasNone) {
    Call call;
    call.reply().getTavelHeader(&call.reply().getObjectRegistry());
    call.read(replyWith(""));
    EXPECT_EQ(call.reply().getTavelHeader(nullptr), nullptr);
}

TEST(Reader, ACredentialInTheOldFormSurvivesOnTheHeader) {
    Call call;
    call.read(
        envelopeOf("<s:Header><b:tavelHeader><ZOR><action>logon</action><ZORCredential>secret</ZORCredential>"
                   "</ZOR></b:tavelHeader></s:Header><s:Body><r/></s:Body>"));
    MRLZOR* const block = call.reply().getTavelHeader(nullptr)->getZOR();
    ASSERT_EQ(block->getObjectType(), MRLSchemaTypeI::eMRLZOR_Unsupported);
    EXPECT_STREQ(static_cast<MRLZOR_Unsupported*>(block)->getZORCredential(), "secret");
    EXPECT_STREQ(block->getAction(), "logon");
}

// --- requests that nobody expected ------------------------------------------------------------------

const std::vector<MRLPortTypeI*>& portTypes() {
    static const std::vector<MRLPortTypeI*> s_portTypes{&MRLJobServicePortType::getInstance(),
                                                        &MRLContentManagerServicePortType::getInstance()};
    return s_portTypes;
}

TEST(Reader, ARequestFindsItsOperationAndTheMessageOwnsWhatWasRead) {
    for (const std::size_t chunk : chunkSizes) {
        const std::string document = golden("query_request.xml");
        HBLSmartPointer<MRLPortTypeBinding> binding;
        {
            ChunkedStream stream(document, chunk);
            MRLSOAPMessageIDeserializer reader;
            reader.parse(stream, portTypes(), binding);
        }
        ASSERT_EQ(binding->getInputMessage().getMessageType(), Request::eMRLContentQuery_Request);
        EXPECT_STREQ(binding->getOperationName(), "query");
        EXPECT_EQ(mrl::test::written([&](PLQOutputStream& out) {
                      MRLSOAPMessageISerializer().serialize(*binding, binding->getInputMessage(), out,
                                                            nullptr, 1, 0);
                  }),
                  document);
    }
}

TEST(Reader, ARequestThatNoServiceTakesIsRefused) {
    HBLSmartPointer<MRLPortTypeBinding> binding;
    MRLSOAPMessageIDeserializer reader;
    const auto read = [&](const std::string& document) {
        ChunkedStream stream(document, 7);
        reader.parse(stream, portTypes(), binding);
    };
    expectFailure([&] { read(envelopeOf("<s:Body><o:go xmlns:o='urn:o'/></s:Body>")); }, 0xa6456bb1,
                  {"go", "urn:o"}, "MRLMessageIContentHandler::characters");
    const char* const ours = "http://developer.vantor.example/schemas/contentManagerService/1";
    expectFailure([&] { read(envelopeOf("<s:Body><o:go xmlns:o='" + std::string(ours) + "'/></s:Body>")); },
                  0xa64112c6, {"go", "contentManagerService"}, "MRLPortTypeI::createPortTypeBinding");
    expectAssert([&] { read(envelopeOf("<s:Body/>")); }, "HBL_ASSERT(m_boundPortType);");
    EXPECT_FALSE(binding);
    read(golden("query_request.xml")); // the reader is usable after each of them
    EXPECT_TRUE(binding);
}

} // namespace
