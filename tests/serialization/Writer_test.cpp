// What goes out: whole envelopes against files worked out by hand, and the forms of single values.
#include "Toolkit/MRLAccount.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBaseClassArrayProp.h"
#include "Toolkit/MRLBooleanProp.h"
#include "Toolkit/MRLClassEnum.h"
#include "Toolkit/MRLClassEnumProp.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLFolder.h"
#include "Toolkit/MRLMultilingualToken.h"
#include "Toolkit/MRLMultilingualTokenArray.h"
#include "Toolkit/MRLMultilingualTokenProp.h"
#include "Toolkit/MRLOrderEnum.h"
#include "Toolkit/MRLPositiveIntegerProp.h"
#include "Toolkit/MRLPropEnum.h"
#include "Toolkit/MRLPropEnumArray.h"
#include "Toolkit/MRLQueryOptions.h"
#include "Toolkit/MRLReport.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLSort.h"
#include "Toolkit/MRLSortArray.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLTokenProp.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "serialization/Envelopes.h"
#include "serialization/MRLSOAPMessageISerializer.h"
#include "serialization/MRLSOAPSerializer.h"
#include "serialization/ObjectContext.h"
#include "support/Failure.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <gmock/gmock.h>

using mrl::test::Call;
using mrl::test::golden;
using mrl::test::written;
using testing::HasSubstr;

namespace {

template <class T>
T* made(MRLObjectRegistryI& registry) {
    T* const object = new T();
    registry.registerPointer(object);
    return object;
}

std::string envelope(Call& call, MRLMessageI& message, PLQOutputStream* altOut = nullptr,
                     int writeNulls = 0) {
    return written([&](PLQOutputStream& out) {
        MRLSOAPMessageISerializer().serialize(*call.binding, message, out, altOut, 1, writeNulls);
    });
}

void* text(const char* characters) {
    return const_cast<char*>(characters);
}

void fillRequest(MRLContentQuery_Request& request) {
    MRLObjectRegistryI& registry = request.getObjectRegistry();
    MRLZOR& zor = *request.getTavelHeader(&registry)->getZOR(&registry);
    zor.getZORPassport(&registry)->setId("MTAxOmE=");
    zor.getRoles().push_back("authors");
    zor.getRoles().push_back("R&D");
    zor.getSecurityBlob(&registry)->append("abc", 3);
    request.getSearchPath(&registry)->setValue("/content//report[@name='a & b']");
    for (const char* const name : {"searchPath", "defaultName"}) {
        auto* const property = made<MRLPropEnum>(registry);
        property->setValue(name);
        request.getProperties(&registry)->push_back(property);
    }
    auto* const sort = made<MRLSort>(registry);
    sort->getOrder(&registry)->setValue("descending");
    sort->getPropName(&registry)->setValue("defaultName");
    request.getSortBy(&registry)->push_back(sort);
    MRLQueryOptions& options = *request.getOptions(&registry);
    options.setMaxObjects(20);
    options.setSchemaInfo(1);
    options.setSkipObjects(-1);
}

void fillReply(MRLContentQuery_Reply& reply) {
    MRLObjectRegistryI& registry = reply.getObjectRegistry();
    MRLBaseClassArray& result = *reply.getResult(&registry);
    auto* const report = made<MRLReport>(registry);
    report->getDefaultName(&registry)->setValue("Ums\u00e4tze <2024> \U0001F4C8");
    report->getDisabled(&registry)->setValue(0);
    report->getSearchPath(&registry)->setValue("/content/report");
    report->getVersion(&registry)->setValue(3);
    report->getHidden(&registry)->setValue(1);
    result.push_back(report);
    auto* const folder = made<MRLFolder>(registry);
    const char* const names[][2] = {{"de", "\u00d6ffentlich"}, {"en", "Public"}};
    for (const auto& [locale, value] : names) {
        auto* const token = made<MRLMultilingualToken>(registry);
        token->setLocale(locale);
        token->setValue(value);
        folder->getName(&registry)->getValue().push_back(token);
    }
    folder->getObjectClass(&registry)->getValue(&registry)->setValue("folder");
    auto* const owner = made<MRLAccount>(registry);
    owner->getSearchPath(&registry)->setValue("");
    folder->getOwner(&registry)->getValue().push_back(owner);
    result.push_back(folder);
    result.push_back(made<MRLAccount>(registry));
}

TEST(Writer, ARequestWithHeaderArraysEnumsAndNumbersIsExact) {
    Call call;
    fillRequest(static_cast<MRLContentQuery_Request&>(call.request()));
    EXPECT_EQ(envelope(call, call.request()), golden("query_request.xml"));
}

TEST(Writer, AbsentParametersAreWrittenAsNilAndAbsentArraysWithEmptyBrackets) {
    Call call;
    EXPECT_EQ(envelope(call, call.request()), golden("empty_request.xml"));
}

TEST(Writer, AReplyWithDerivedClassesInOneArrayIsExact) {
    Call call;
    fillReply(static_cast<MRLContentQuery_Reply&>(call.reply()));
    EXPECT_EQ(envelope(call, call.reply()), golden("query_reply.xml"));
}

TEST(Writer, WhatIsReadInAnyPiecesIsWrittenBackTheSame) {
    for (const std::size_t chunk : mrl::test::chunkSizes) {
        Call call;
        call.read(golden("query_reply.xml"), chunk);
        EXPECT_EQ(envelope(call, call.reply()), golden("query_reply.xml")) << "in pieces of " << chunk;
    }
}

TEST(Writer, TheSecondStreamReceivesTheSameBytesAndMustBeAnotherOne) {
    Call call;
    PLQMemoryOutputStream copy(16, 0);
    const std::string bytes = envelope(call, call.request(), &copy);
    EXPECT_EQ(std::string(copy.bytes(), copy.length()), bytes);
    MRLSOAPMessageISerializer writer;
    expectAssert([&] { writer.serialize(*call.binding, call.request(), copy, &copy, 1, 0); },
                 "HBL_ASSERT(altOut != &out);");
}

TEST(Writer, AMessageOfAnotherOperationIsRefusedBeforeTheFirstByte) {
    Call call;
    Call other(MRLMessageI::eMRLContentDelete_Request);
    EXPECT_EQ(
        written([&](PLQOutputStream& out) {
            try {
                MRLSOAPMessageISerializer().serialize(*call.binding, other.request(), out, nullptr, 1, 0);
                ADD_FAILURE() << "nothing was thrown";
            } catch (HBLAssertError& e) {
                EXPECT_THAT(e.getText(), HasSubstr("The message to be serialized must be either the input "
                                                   "or output message contained in the given binding"));
                EXPECT_THAT(e.getBackTrace().back(), HasSubstr("MRLSOAPMessageISerializer::serialize()"));
            }
        }),
        "");
}

TEST(Writer, AnEnvelopeWithoutAnOperationKeepsTheIndentationInFrontOfItsContent) {
    ObjectContext param(text("a"), MRLSchemaTypeI::eString, "p");
    const std::string bytes = written([&](PLQOutputStream& out) {
        MRLSOAPSerializer().serializeEnvelope({}, {&param}, nullptr, nullptr, out, nullptr, 0);
    });
    EXPECT_THAT(
        bytes,
        HasSubstr("\t<SOAP-ENV:Body>\n\t\t\t\t\t<p xsi:type=\"xs:string\">a</p>\n\n\t</SOAP-ENV:Body>\n"));
}

TEST(Writer, ANameIsRequiredAndAFailingStreamIsHeardOf) {
    PLQMemoryOutputStream out(16, 0);
    expectAssert([&] { MRLSOAPSerializer().serialize(text("a"), MRLSchemaTypeI::eString, nullptr, out); },
                 "HBL_ASSERT_NAMED(qName, \"NULL qname\");");
    struct Broken : PLQOutputStream {
        void write(const char*, std::size_t) override { throw std::runtime_error("disk full"); }
    } broken;
    Call call;
    EXPECT_THROW(MRLSOAPMessageISerializer().serialize(*call.binding, call.request(), broken, nullptr, 1, 0),
                 HBLStdExceptionError);
}

TEST(Writer, WhatWasWrittenBeforeAFailureStays) {
    const std::string bytes = written([](PLQOutputStream& out) {
        expectAssert(
            [&] { MRLSOAPSerializer().serializeEnvelope({}, {}, "query", nullptr, out, nullptr, 1); },
            "HBL_ASSERT_NAMED(operationNamespace, \"An operation namespace must be given.\");");
    });
    EXPECT_THAT(bytes, testing::EndsWith("\t</SOAP-ENV:Header>\n\t<SOAP-ENV:Body>\n\t\t"));
}

/// Owners within owners: the way down must cost no stack.
TEST(Writer, AVeryDeepGraphIsWritten) {
    Call call;
    MRLObjectRegistryI& registry = call.reply().getObjectRegistry();
    MRLFolder* outermost = made<MRLFolder>(registry);
    for (int depth = 0; depth < 2000; ++depth) {
        auto* const owner = made<MRLFolder>(registry);
        owner->getOwner(&registry)->getValue().push_back(outermost);
        outermost = owner;
    }
    const std::string bytes = written([&](PLQOutputStream& out) {
        MRLSOAPSerializer().serialize(outermost, MRLSchemaTypeI::eMRLFolder, "v", out);
    });
    EXPECT_GT(bytes.size(), 2000U * 100);
}

} // namespace
