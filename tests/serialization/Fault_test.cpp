// Faults: the model, its form on the wire, the exception that carries it.
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailArray.h"
#include "Toolkit/MRLFaultDetailMessage.h"
#include "Toolkit/MRLFaultDetailMessageArray.h"
#include "Toolkit/MRLMessage.h"
#include "Toolkit/MRLMessageArray.h"
#include "Toolkit/MRLObjectRegistryFactory.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLUndocumentedFaultDetail.h"
#include "Toolkit/MRLUndocumentedFaultDetailArray.h"
#include "Toolkit/MRLZORException.h"
#include "Toolkit/MRL_String.h"
#include "serialization/Envelopes.h"
#include "serialization/MRLSOAPFaultException.h"
#include "serialization/MRLSOAPFaultSerializer.h"
#include "support/Failure.h"

#include "HBLCore/HBLFailure.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>

using mrl::test::Call;
using mrl::test::chunkSizes;
using mrl::test::faultWith;
using mrl::test::golden;
using mrl::test::written;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

struct FaultTest : testing::Test {
    template <class T>
    T* made() {
        T* const object = new T();
        registry->registerPointer(object);
        return object;
    }
    std::string envelope(const MRLTavelHeader* header = nullptr, int prettyPrint = 1) {
        return written([&](PLQOutputStream& out) {
            MRLSOAPFaultSerializer().serialize(header, fault, out, 1, prettyPrint);
        });
    }
    std::string messages() const {
        std::string text = "left over";
        fault.getMessages(text);
        return text;
    }
    void fillDocumented() {
        fault.setFaultCode("Client");
        fault.setFaultString("no such object");
        fault.setFaultActor("cm");
        auto* const detail = made<MRLFaultDetail>();
        detail->setErrorCode("cmNoRead");
        detail->setSeverity("error");
        for (const char* const text : {"outer", "inner"}) {
            auto* const message = made<MRLFaultDetailMessage>();
            message->setMessage(text);
            detail->getMessage().push_back(message);
        }
        detail->getMessage().at(1)->setNestingLevel(1);
        fault.setDetail(made<MRLFaultDetailArray>());
        fault.getDetail()->push_back(detail);
    }
    void fillUndocumented() {
        fault.setFaultCode("Server");
        auto* const detail = made<MRLUndocumentedFaultDetail>();
        detail->setSeverity("error");
        for (const char* const text : {"log on", " again"}) {
            auto* const message = made<MRLMessage>();
            message->setMessageString(text);
            detail->getMessage().push_back(message);
        }
        fault.setDetail(made<MRLUndocumentedFaultDetailArray>());
        fault.getUndocumentedDetail()->push_back(detail);
    }
    void fillSecurity() {
        fillUndocumented();
        auto* const security = made<MRLZORException>();
        security->setSeverity("fatal");
        security->setErrorCodeString("zorAuthUnrecoverable");
        security->getMessages().push_back("expired");
        fault.setZORException(security);
    }

    void fillDetailWithoutItems() { fault.setDetail(made<MRLFaultDetailArray>()); }

    HBLSmartPointer<MRLObjectRegistryI> registry{MRLObjectRegistryFactory::getInstance().create()};
    MRLSOAPFault fault;
};

/// The fault that reading `document` ends in.
std::optional<MRLSOAPFaultException> faultOf(const std::string& document, std::size_t chunk = 4096) {
    Call call;
    try {
        call.read(document, chunk);
    } catch (const MRLSOAPFaultException& e) {
        return e;
    }
    ADD_FAILURE() << "no fault was thrown";
    return std::nullopt;
}

/// A form of fault, by the name of its files.
struct Form {
    const char* name;
    void (FaultTest::*fill)();
};

class FaultForm : public FaultTest, public testing::WithParamInterface<Form> {};

INSTANTIATE_TEST_SUITE_P(Fault, FaultForm,
                         testing::Values(Form{"documented", &FaultTest::fillDocumented},
                                         Form{"undocumented", &FaultTest::fillUndocumented},
                                         Form{"security", &FaultTest::fillSecurity},
                                         Form{"headed", &FaultTest::fillDetailWithoutItems}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(FaultForm, IsWrittenExactlyAndReadBack) {
    (this->*GetParam().fill)();
    const std::string name = std::string("faults/") + GetParam().name;
    const MRLTavelHeader* const header = name == "faults/headed" ? made<MRLTavelHeader>() : nullptr;
    EXPECT_EQ(envelope(header), golden(name + ".xml"));
    EXPECT_EQ(envelope(header, 0), golden(name + "_plain.xml"));
    EXPECT_STREQ(fault.toString(header), golden(name + ".xml").c_str());
    if (fault.getFaultString() == nullptr) { // an absent text is read as an empty one
        fault.setFaultString("");
    }
    if (fault.getFaultCode() == nullptr) {
        fault.setFaultCode("");
    }
    for (const std::size_t chunk : chunkSizes) {
        for (const char* const file : {".xml", "_plain.xml"}) {
            const auto exception = faultOf(golden(name + file), chunk);
            ASSERT_TRUE(exception);
            EXPECT_TRUE(exception->getSOAPFault() == fault) << file << " in pieces of " << chunk;
            EXPECT_EQ(exception->getTavelHeader() != nullptr, header != nullptr);
        }
    }
}

TEST_F(FaultTest, ASecurityExceptionHasNoPlaceWithADocumentedDetailOrWithoutMessages) {
    fillSecurity();
    fault.getUndocumentedDetail()->at(0)->getMessage().clear();
    EXPECT_THAT(envelope(), testing::Not(HasSubstr("zorAuth")));
    fillDocumented();
    EXPECT_THAT(envelope(), testing::Not(HasSubstr("zorAuth")));
}

TEST_F(FaultTest, AnItemWithoutATypeMakesTheDetailAnUndocumentedOne) {
    const std::string document = faultWith(
        "<faultcode>Server</faultcode><faultstring/><detail><b:exception><b:severity>error</b:severity>"
        "<b:errorCode>cmNoRead</b:errorCode><b:message><b:messageString>one</b:messageString></b:message>"
        "<b:message><b:messageString>two</b:messageString></b:message></b:exception></detail>");
    for (const std::size_t chunk : chunkSizes) {
        const auto exception = faultOf(document, chunk);
        ASSERT_TRUE(exception);
        const MRLSOAPFault& read = exception->getSOAPFault();
        EXPECT_EQ(read.getDetail(), nullptr);
        ASSERT_NE(read.getUndocumentedDetail(), nullptr);
        EXPECT_STREQ(read.getUndocumentedDetail()->at(0)->getErrorCodeString(), "cmNoRead");
        std::string text;
        read.getMessages(text);
        EXPECT_EQ(text, "onetwo");
    }
}

TEST_F(FaultTest, APartThatIsNilIsAbsent) {
    const auto exception = faultOf(faultWith(R"(<faultcode>Server</faultcode><faultstring>no</faultstring>)"
                                             R"(<faultactor i:nil="true"/><detail i:nil="true"/>)"));
    ASSERT_TRUE(exception);
    EXPECT_STREQ(exception->getSOAPFault().getFaultString(), "no");
    EXPECT_EQ(exception->getSOAPFault().getFaultActor(), nullptr);
    EXPECT_EQ(exception->getSOAPFault().getDetail(), nullptr);
}

TEST_F(FaultTest, TheHeaderOfAFaultIsKeptAndTheMessageStaysAsItWas) {
    Call call;
    MRLSOAPMessageIDeserializer reader;
    const std::string document = mrl::test::envelopeOf(
        "<s:Header><b:tavelHeader/></s:Header><s:Body><s:Fault><faultcode>c</faultcode></s:Fault></s:Body>");
    mrl::test::ChunkedStream stream(document, 7);
    EXPECT_THROW(reader.parse(stream, *call.binding, call.reply()), MRLSOAPFaultException);
    EXPECT_NE(reader.getTavelHeader(), nullptr);
    EXPECT_EQ(call.reply().getTavelHeader(nullptr), nullptr);
    EXPECT_EQ(static_cast<MRLContentQuery_Reply&>(call.reply()).getResult(), nullptr);
}

TEST_F(FaultTest, AFaultWithAnUnknownChildFails) {
    Call call;
    expectFailure([&] { call.read(faultWith("<reason/>")); }, 0xa641bf21, {"reason", "Fault"},
                  "MRLSchemaInfo::getChildObject");
    expectFailure([&] { call.read(faultWith("<detail><e><reason/></e></detail>")); }, 0xa641bf21,
                  {"reason", "UndocumentFaultDetail"}, "MRLUndocumentedFaultDetail::getChildType");
}

TEST_F(FaultTest, DetailsThatNestInAnyWayEndInOneException) {
    for (const char* const detail :
         {"<e><message><detail/></message></e>", "<detail><x/></detail>", "<e><detail><detail/></detail></e>",
          "<e><message><detail><exception><detail/></exception></detail></message></e>",
          "<e><message><detail><exception/><detail/></detail></message></e>"}) {
        Call call;
        EXPECT_THROW(call.read(faultWith("<detail>" + std::string(detail) + "</detail>")), HBLThrowable)
            << detail;
    }
}

TEST_F(FaultTest, MessagesAreThoseOfTheFirstItemAndThenOfTheSecurityException) {
    EXPECT_EQ(messages(), "");
    fillSecurity();
    EXPECT_EQ(messages(), "log on again expired");
    fillDocumented();
    fault.getDetail()->push_back(made<MRLFaultDetail>());
    EXPECT_EQ(messages(), "outerinner expired");
}

TEST_F(FaultTest, DetailsConvertBothWaysAndOnlyOnce) {
    fillDocumented();
    fault.convertFaultDetail(*registry);
    fault.convertFaultDetail(*registry);
    EXPECT_EQ(fault.getDetail(), nullptr);
    ASSERT_EQ(fault.getUndocumentedDetail()->size(), 1U);
    const MRLUndocumentedFaultDetail& detail = *fault.getUndocumentedDetail()->at(0);
    EXPECT_STREQ(detail.getErrorCodeString(), "cmNoRead");
    EXPECT_EQ(detail.getMessage().at(0)->getNestingLevel(), nullptr);
    EXPECT_EQ(*detail.getMessage().at(1)->getNestingLevel(), 1);
    EXPECT_EQ(messages(), "outerinner");
    fault.convertUndocumentedFaultDetail(*registry);
    EXPECT_EQ(envelope(), golden("faults/documented.xml"));
}

TEST_F(FaultTest, ChildrenThatNoFieldHoldsAreCheckedAndDropped) {
    MRL_String text;
    text.append("a");
    auto* const details = made<MRLUndocumentedFaultDetailArray>();
    for (const char* const name : {"faultSubcode", "faultSubstring", "faultDataSource"}) {
        EXPECT_EQ(fault.setChildObject(name, &text, MRLSchemaTypeI::eString, nullptr), 0U);
        expectFailure([&] { fault.setChildObject(name, details, details->getObjectType(), nullptr); },
                      0xa647c21f, {"SOAPFault", name, "xs:string", "MRLUndocumentedFaultDetailArray"},
                      "MRLSchemaTypesFactory::typeError()");
    }
    for (const char* const name : {"faultConnection", "faultSignon", "dataSource"}) {
        EXPECT_EQ(fault.setChildObject(name, details, details->getObjectType(), nullptr), 0U);
        EXPECT_EQ(fault.getChildType(name), MRLSchemaTypeI::eMRLFaultDetailArray);
    }
    EXPECT_EQ(fault.setChildObject("", nullptr, MRLSchemaTypeI::eString, nullptr), 0U);
    expectAssert([&] { fault.setChildObject("detail", nullptr, MRLSchemaTypeI::eString, nullptr); },
                 "HBL_ASSERT(obj != NULL);");
    expectFailure([&] { fault.setChildObject("x", &text, MRLSchemaTypeI::eString, nullptr); }, 0xa641bf21,
                  {"x", "Fault"}, "MRLSOAPFault::setChildObject()");
}

TEST_F(FaultTest, TheExceptionKeepsTheFaultAliveInEachOfItsCopies) {
    std::unique_ptr<HBLThrowable> kept;
    {
        const auto exception = faultOf(golden("faults/security.xml"));
        kept.reset(exception->clone());
    }
    auto& copy = dynamic_cast<MRLSOAPFaultException&>(*kept);
    EXPECT_EQ(copy.getObjectRegistry()->getReferenceCount(), 1);
    std::string text;
    copy.getSOAPFaultMessages(text);
    EXPECT_EQ(text, "log on again expired");
    MRLSOAPFaultException assigned(nullptr, fault, nullptr);
    assigned = copy;
    EXPECT_EQ(copy.getObjectRegistry()->getReferenceCount(), 2);
}

TEST_F(FaultTest, TheExceptionAsTextHoldsEachPlaceItPassed) {
    fault.setFaultCode("c");
    MRLSOAPFaultException exception(nullptr, fault, nullptr);
    exception.addBackTrace(HBLFileLocation("a.cpp", 1), "f", "HBL_THROW");
    exception.addBackTrace(HBLFileLocation("b.cpp", 2), nullptr, "HBL_RETHROW");
    const auto& trace = exception.getBackTrace();
    EXPECT_EQ(std::string(exception.toString()),
              "<Exception Name=\"MRLSOAPFaultException\"><Error>" + exception.getErrorCodeString() +
                  "</Error><Severity>error</Severity><Messages></Messages><TraceInfo><Trace Text=\"" +
                  trace.at(0) + " \"/><Trace Text=\"" + trace.at(1) + " \"/></TraceInfo></Exception>");
}

} // namespace
