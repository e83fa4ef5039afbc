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

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

struct Refused {
    const char* name;
    std::string document;
    std::uint32_t number;
    std::vector<std::string> parameters;
    const char* function;
    Request::MessageType request = Request::eMRLContentQuery_Request;
};

class RefusedReply : public testing::TestWithParam<Refused> {};

constexpr const char* MESSAGE_START = "MRLMessageIContentHandler::startElement";
constexpr const char* START = "MRLSchemaTypeIContentHandler::startElement";
constexpr const char* CHARACTERS = "MRLSchemaTypeIContentHandler::characters";
constexpr const char* CHECK_TYPE = "MRLSchemaTypeIContentHandler::checkType()";
constexpr auto COUNT = Request::eMRLContentDelete_Request;                 // gives an int
constexpr auto TEXT = Request::eMRLContentGetActiveContentManager_Request; // gives a string

INSTANTIATE_TEST_SUITE_P(
    Reader, RefusedReply,
    testing::Values(
        Refused{"RootIsNoEnvelope", "<html/>", 0xa646d8c9, {"Envelope"}, MESSAGE_START},
        Refused{
            "RootIsInAnotherNamespace", "<Envelope xmlns='urn:x'/>", 0xa646d8c9, {"Envelope"}, MESSAGE_START},
        Refused{"SectionIsUnknown", envelopeOf("<s:Foot/>"), 0xa646d8c9, {"Body"}, MESSAGE_START},
        Refused{"ArrayWithoutArrayType", replyWith("<q i:type='enc:Array'/>"), 0xa64ba852, {"q"}, START},
        Refused{"ArrayTypeWithoutPrefix",
                replyWith("<q i:type='enc:Array' enc:arrayType='baseClass[1]'/>"),
                0xa64cb90c,
                {"baseClass[1]", "q"},
                "MRLSchemaTypeIContentHandler::getBusXsiType()"},
        Refused{"ArrayOfUnknownType",
                replyWith("<q i:type='enc:Array' enc:arrayType='b:nothing[1]'/>"),
                0xa648385c,
                {"enc:Array", "q"},
                "MRLSchemaTypeIContentHandler::getObjectType()"},
        Refused{"ElementInNil",
                reportWith("<defaultName i:nil='true'><b/></defaultName>"),
                0xa641d35c,
                {"defaultName"},
                START},
        Refused{"BlankInNil",
                reportWith("<defaultName i:nil='true'> </defaultName>"),
                0xa64152ea,
                {"defaultName"},
                CHARACTERS},
        Refused{"ElementInReference",
                reportWith("<defaultName><value href='cid:p1'><b/></value></defaultName>"),
                0xa640320b,
                {"value", "p1"},
                START},
        Refused{"TextInReference",
                reportWith("<defaultName><value href='cid:p1'>a</value></defaultName>"),
                0xa64acda5,
                {"value", "p1"},
                CHARACTERS},
        Refused{"ElementInSimpleValue",
                reportWith("<defaultName><value><b/></value></defaultName>"),
                0xa64aa334,
                {"value"},
                START},
        Refused{"MemberGivenTwice",
                reportWith("<defaultName><value>a</value><value>b</value></defaultName>"),
                0xa64b8476,
                {"defaultName", "value"},
                START},
        Refused{"ItemOfAnotherClass",
                replyWith("<q i:type='enc:Array' enc:arrayType='b:baseClass[1]'><item i:type='b:sort'/></q>"),
                0xa64bca5d,
                {"bus:sort", "bus:baseClass"},
                START},
        Refused{"SimpleItemAmongObjects",
                replyWith(
                    "<q i:type='enc:Array' enc:arrayType='b:baseClass[1]'><item i:type='x:int'>1</item></q>"),
                0xa64bca5d,
                {"xs:int", "bus:baseClass"},
                START},
        Refused{"MemberOfAnotherClass",
                reportWith("<defaultName i:type='b:booleanProp'/>"),
                0xa64bd4db,
                {"bus:booleanProp", "bus:tokenProp", "defaultName"},
                CHECK_TYPE},
        Refused{"MemberOfAnotherSimpleType",
                reportWith("<defaultName><value i:type='x:int'>1</value></defaultName>"),
                0xa6487d84,
                {"xs:int", "xs:string", "value"},
                CHECK_TYPE},
        Refused{"ParameterOfAnotherClass",
                replyWith("<q i:type='b:report'/>"),
                0xa64bd4db,
                {"bus:report", "bus:baseClassArray", "q"},
                CHECK_TYPE},
        Refused{"ItemOfAbstractClass",
                replyWith("<q i:type='enc:Array' enc:arrayType='b:baseClass[1]'><item/></q>"),
                0xa647ec7b,
                {"bus:baseClass"},
                "MRLSchemaTypesFactory::create()"},
        Refused{"TimeHasNoValue",
                reportWith("<defaultName><value i:type='x:time'>1</value></defaultName>"),
                0xa647ec7b,
                {"xs:time"},
                "MRLSchemaTypesFactory::create()"},
        Refused{"NoInt", replyWith("<n>1a</n>"), 0xa6407f89, {"n", "int"}, CHARACTERS, COUNT},
        Refused{"NoBoolean",
                reportWith("<hidden><value>True</value></hidden>"),
                0xa6407f89,
                {"value", "boolean"},
                CHARACTERS},
        Refused{"EmptyBoolean",
                reportWith("<hidden><value></value></hidden>"),
                0xa6407f89,
                {"value", "boolean"},
                CHARACTERS},
        Refused{"NoFloat",
                replyWith("<d><item><metrics><item "
                          "i:type='b:rolapMetricNumber'><value>0x10</value></item></metrics></item></d>"),
                0xa6407f89,
                {"value", "float"},
                CHARACTERS,
                Request::eMRLRolapCubeAdministrationGetCubeMetrics_Request},
        Refused{"UnknownEnumValue",
                reportWith("<objectClass><value>nonsense</value></objectClass>"),
                0xa645dc29,
                {"nonsense"},
                "MRLClassEnum::stringToEnum()"}),
    [](const auto& row) { return std::string(row.param.name); });

MRLPortTypeI& portTypeOf(Request::MessageType request);

TEST_P(RefusedReply, EndsInItsOwnFailureHoweverTheBytesArrive) {
    const Refused& row = GetParam();
    for (const std::size_t chunk : chunkSizes) {
        SCOPED_TRACE(chunk);
        HBLSmartPointer<MRLPortTypeBinding> binding =
            portTypeOf(row.request).createPortTypeBinding(row.request);
        ChunkedStream stream(row.document, chunk);
        MRLSOAPMessageIDeserializer reader;
        MRL_AttachmentHandler attachments;
        reader.setAttachmentHandler(&attachments);
        expectFailure([&] { reader.parse(stream, *binding, binding->getOutputMessage()); }, row.number,
                      row.parameters, row.function);
    }
}

MRLPortTypeI& portTypeOf(Request::MessageType request) {
    if (request == Request::eMRLRolapCubeAdministrationGetCubeMetrics_Request) {
        return MRLQueryServicePortType::getInstance();
    }
    return MRLContentManagerServicePortType::getInstance();
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

TEST(Reader, EachPieceSizeGivesTheSameObjects) {
    for (const std::size_t chunk : chunkSizes) {
        Call call;
        call.read(golden("query_reply.xml"), chunk);
        MRLBaseClassArray& result = resultOf(call);
        ASSERT_EQ(result.size(), 3U);
        EXPECT_EQ(result.at(0)->getObjectType(), MRLSchemaTypeI::eMRLReport);
        EXPECT_EQ(result.at(2)->getObjectType(), MRLSchemaTypeI::eMRLAccount);
        EXPECT_STREQ(result.at(0)->getDefaultName()->getValue(), "Ums\u00e4tze <2024> \U0001F4C8");
    }
}

TEST(Reader, EncodingsOtherThanUtf8AreRead) {
    Call call;
    std::string document = reportWith("<defaultName><value>\xE4</value></defaultName>");
    document.replace(0, 21, R"(<?xml version="1.0" encoding="ISO-8859-1"?>)");
    call.read(document);
    EXPECT_STREQ(reportIn(call).getDefaultName()->getValue(), "\u00e4");

    const std::string ascii = reportWith("<defaultName><value>w</value></defaultName>");
    std::string wide = "\xFF\xFE";
    for (const char c : ascii) {
        wide += c;
        wide += '\0';
    }
    Call other;
    other.read(wide, 3);
    EXPECT_STREQ(reportIn(other).getDefaultName()->getValue(), "w");
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
    call.read(replyWith("<q i:type='enc:Array' enc:arrayType='x:string[4000000000]'>"
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

TEST(Reader, TextKeepsItsBlanksEntitiesAndCDataWholeInAnyPieces) {
    for (const std::size_t chunk : chunkSizes) {
        Call call(TEXT);
        call.read(replyWith("<r> a&amp;b<![CDATA[<c>]]>&#x1F4C8;<!-- no --> </r>"), chunk);
        EXPECT_STREQ(static_cast<MRLContentGetActiveContentManager_Reply&>(call.reply()).getResult(),
                     " a&b<c>\U0001F4C8 ");
    }
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
    for (const std::size_t chunk : chunkSizes) {
        Call call;
        call.read(document, chunk);
        MRLTavelHeader* const header = call.reply().getTavelHeader(nullptr);
        ASSERT_NE(header, nullptr);
        EXPECT_STREQ(header->getZOR()->getZORPassport()->getId(), "p");
        const MRLBase64Binary& blob = *header->getZOR()->getSecurityBlob();
        EXPECT_EQ(std::string(blob.str(), blob.pcount()), " YWJj");
    }
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
                  0xa64112c6, {"go", "contentManagerService"});
    expectAssert([&] { read(envelopeOf("<s:Body/>")); }, "HBL_ASSERT(m_boundPortType);");
    EXPECT_FALSE(binding);
    read(golden("query_request.xml")); // the reader is usable after each of them
    EXPECT_TRUE(binding);
}

} // namespace
